#include "app/ui/ThemeService.h"

#include "app/ui/SpoolwrightStyle.h"
#include "app/ui/Symbol.h"
#include "tests/app/ui/FakePortal.h"
#include "tests/support/TestMain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QPushButton>

#include <chrono>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class ThemeServiceTest final : public QObject {
    Q_OBJECT

private slots:
    void init();
    void withoutABusThePlatformDecides_data();
    void withoutABusThePlatformDecides();
    void thePortalDecides_data();
    void thePortalDecides();
    void changesAreFollowedLive();
    void otherSettingsChangeNothing();
    void everythingIsPaintedAgain();
    void whatIsShownFirstHasItsColorsAlready();
    void aSilentDesktopIsNotWaitedFor();
};

namespace {

const auto appearanceGroup = u"org.freedesktop.appearance"_s;

QDBusConnection noBus()
{
    return QDBusConnection(u"none"_s);
}

} // namespace

void ThemeServiceTest::init()
{
    QApplication::setStyle(u"Fusion"_s);
    QApplication::setPalette(QPalette(QColor(0xEFEFEF)));
}

void ThemeServiceTest::withoutABusThePlatformDecides_data()
{
    QTest::addColumn<QColor>("platformGround");
    QTest::addColumn<bool>("isDark");

    QTest::newRow("a light platform") << QColor(0xEFEFEF) << false;
    QTest::newRow("a dark platform") << QColor(0x202020) << true;
}

void ThemeServiceTest::withoutABusThePlatformDecides()
{
    QFETCH(QColor, platformGround);
    QFETCH(bool, isDark);
    QApplication::setPalette(QPalette(platformGround));

    const ThemeService themes(noBus());

    QCOMPARE(currentTheme(), isDark ? darkTheme() : lightTheme());
    QCOMPARE(QApplication::palette().color(QPalette::Window), currentTheme().canvas);
}

void ThemeServiceTest::thePortalDecides_data()
{
    QTest::addColumn<uint>("scheme");
    QTest::addColumn<uint>("contrast");
    QTest::addColumn<bool>("isDark");
    QTest::addColumn<bool>("isStrong");

    QTest::newRow("no preference, light platform") << 0U << 0U << false << false;
    QTest::newRow("dark") << 1U << 0U << true << false;
    QTest::newRow("light") << 2U << 0U << false << false;
    QTest::newRow("dark with high contrast") << 1U << 1U << true << true;
    QTest::newRow("light with high contrast") << 2U << 1U << false << true;
    QTest::newRow("a scheme that does not exist yet") << 9U << 0U << false << false;
}

void ThemeServiceTest::thePortalDecides()
{
    QFETCH(uint, scheme);
    QFETCH(uint, contrast);
    QFETCH(bool, isDark);
    QFETCH(bool, isStrong);
    FakePortal portal({{u"color-scheme"_s, scheme}, {u"contrast"_s, contrast}});
    const Theme plain = isDark ? darkTheme() : lightTheme();

    const ThemeService themes(portal.bus());
    QCOMPARE(currentTheme(), lightTheme()); // Asking has waited for nothing.

    QTRY_COMPARE(currentTheme(), isStrong ? withHighContrast(plain) : plain);
}

void ThemeServiceTest::changesAreFollowedLive()
{
    FakePortal portal({{u"color-scheme"_s, 1}});
    const ThemeService themes(portal.bus());
    QSignalSpy changed(&themes, &ThemeService::themeChanged);
    QTRY_COMPARE(currentTheme(), darkTheme());

    portal.change(appearanceGroup, u"color-scheme"_s, 2);
    QTRY_COMPARE(currentTheme(), lightTheme());
    portal.change(appearanceGroup, u"contrast"_s, 1);
    QTRY_COMPARE(currentTheme(), withHighContrast(lightTheme()));
    portal.change(appearanceGroup, u"contrast"_s, 0);
    QTRY_COMPARE(currentTheme(), lightTheme());

    QCOMPARE(changed.size(), 4);
    QCOMPARE(QApplication::palette().color(QPalette::Window), QColor(0xFAFAFB));
}

void ThemeServiceTest::otherSettingsChangeNothing()
{
    FakePortal portal({{u"color-scheme"_s, 1}});
    const ThemeService themes(portal.bus());
    QTRY_COMPARE(currentTheme(), darkTheme());
    QSignalSpy changed(&themes, &ThemeService::themeChanged);

    portal.change(u"org.freedesktop.other"_s, u"color-scheme"_s, 2);
    portal.change(appearanceGroup, u"accent-color"_s, 2);
    portal.change(appearanceGroup, u"color-scheme"_s, 1);
    portal.change(appearanceGroup, u"contrast"_s, 1); // The last one does, so all have been heard.

    QTRY_COMPARE(currentTheme(), withHighContrast(darkTheme()));
    QCOMPARE(changed.size(), 1);
}

void ThemeServiceTest::everythingIsPaintedAgain()
{
    FakePortal portal({{u"color-scheme"_s, 1}});
    const ThemeService themes(portal.bus());
    QWidget window;
    auto* button = new QPushButton(symbolIcon(u"circle.fill"_s, &Theme::textPrimary), {}, &window);
    button->setGeometry(100, 100, 32, 32); // Away from where the pointer stands without a screen.
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    QTRY_COMPARE(currentTheme(), darkTheme());
    portal.change(appearanceGroup, u"color-scheme"_s, 2);
    QTRY_COMPARE(currentTheme(), lightTheme());

    const QImage picture = window.grab().toImage();
    QCOMPARE(picture.pixelColor(116, 116), lightTheme().textPrimary);
    QCOMPARE(picture.pixelColor(105, 116), lightTheme().surface);
    QCOMPARE(picture.pixelColor(50, 20), lightTheme().canvas);
}

void ThemeServiceTest::whatIsShownFirstHasItsColorsAlready()
{
    FakePortal portal({{u"color-scheme"_s, 1}, {u"contrast"_s, 1}});
    ThemeService themes(portal.bus());

    QList<Theme> shownIn;
    themes.whenSettled(1min, [&] { shownIn.append(currentTheme()); });

    QVERIFY(shownIn.isEmpty());
    QTRY_COMPARE(shownIn, QList<Theme>{withHighContrast(darkTheme())});
    QTest::qWait(10);
    QCOMPARE(shownIn.size(), 1);
}

void ThemeServiceTest::aSilentDesktopIsNotWaitedFor()
{
    const QDBusServer nobodyAnswers(u"unix:tmpdir=/tmp"_s);
    const QDBusConnection bus
        = QDBusConnection::connectToPeer(nobodyAnswers.address(), u"silent"_s);
    ThemeService silent(bus);
    ThemeService without(noBus());

    int calls = 0;
    silent.whenSettled(5ms, [&] { ++calls; });
    without.whenSettled(1min, [&] { ++calls; });

    QTRY_COMPARE(calls, 2);
    QDBusConnection::disconnectFromPeer(u"silent"_s);
}

REELHOUSE_TEST(ThemeServiceTest)

#include "ThemeServiceTest.moc"
