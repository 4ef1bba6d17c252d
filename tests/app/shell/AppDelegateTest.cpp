#include "app/shell/AppDelegate.h"

#include "app/shell/MainWindow.h"
#include "app/shell/WindowPlacement.h"
#include "app/store/StoreProvider.h"
#include "core/preferences/Preferences.h"
#include "tests/support/TestMain.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QScreen>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenuBar>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class AppDelegateTest final : public QObject {
    Q_OBJECT

private slots:
    void theWindowOpensAtItsSize_data();
    void theWindowOpensAtItsSize();
    void theStoreIsOpenedOnceTheWindowStands();
    void closingSavesTheSize_data();
    void closingSavesTheSize();
    void terminatingSavesTheSizeAndEndsWithZero();
    void theMenuBarHoldsWhatWorksToday();
};

namespace {

struct Fixture {
    /// Runs the start-up up to the window on screen and the store opened.
    void launch()
    {
        delegate.applicationDidFinishLaunching();
        QVERIFY(QTest::qWaitFor([this] { return provider.container() != nullptr; }));
    }

    QTemporaryDir folder;
    Preferences preferences{folder.filePath(u"preferences.conf"_s)};
    StoreProvider provider{StorePaths(folder.filePath(u"Documents"_s))};
    MainWindow window;
    AppDelegate delegate{preferences, provider, [this] { return &window; }};
};

/// What the screen leaves of a wanted size, the margins and the decoration taken off.
QSize onScreen(QSize size, const QWidget& window)
{
    const QSize decoration = window.frameGeometry().size() - window.size();
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    return size.expandedTo(window.minimumSize())
        .boundedTo(available.size() - QSize(40, 40) - decoration);
}

} // namespace

void AppDelegateTest::theWindowOpensAtItsSize_data()
{
    QTest::addColumn<QSizeF>("saved");
    QTest::addColumn<bool>("isRemembered");
    QTest::addColumn<QSize>("expected");

    QTest::newRow("nothing saved") << QSizeF() << true << QSize(1300, 850);
    QTest::newRow("a saved size") << QSizeF(700, 500) << true << QSize(700, 500);
    QTest::newRow("not to be remembered") << QSizeF(700, 500) << false << QSize(1300, 850);
    QTest::newRow("larger than the screen") << QSizeF(9000, 8000) << true << QSize(9000, 8000);
}

void AppDelegateTest::theWindowOpensAtItsSize()
{
    QFETCH(QSizeF, saved);
    QFETCH(bool, isRemembered);
    QFETCH(QSize, expected);
    Fixture fixture;
    if (saved.isValid())
        fixture.preferences.setWindowSize(saved);
    fixture.preferences.setRememberWindowState(isRemembered);

    fixture.launch();

    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    QCOMPARE(fixture.window.size(), onScreen(expected, fixture.window));
    const QPoint offset = fixture.window.frameGeometry().center() - available.center();
    QVERIFY2(offset.manhattanLength() <= 2, qPrintable(QString::number(offset.manhattanLength())));
}

void AppDelegateTest::theStoreIsOpenedOnceTheWindowStands()
{
    Fixture fixture;
    QSignalSpy opened(&fixture.provider, &StoreProvider::stateChanged);

    fixture.launch();

    QVERIFY(fixture.window.isVisible());
    QCOMPARE(fixture.window.windowTitle(), u"Spoolwright"_s);
    QCOMPARE(opened.count(), 1);
    QCOMPARE(fixture.delegate.modelContainer(), fixture.provider.container());
    QVERIFY(!fixture.delegate.usingInMemoryStore());
}

void AppDelegateTest::closingSavesTheSize_data()
{
    QTest::addColumn<bool>("isRemembered");

    QTest::newRow("remembered") << true;
    QTest::newRow("not remembered") << false;
}

void AppDelegateTest::closingSavesTheSize()
{
    QFETCH(bool, isRemembered);
    Fixture fixture;
    fixture.preferences.setRememberWindowState(isRemembered);
    fixture.launch();
    const QSizeF shown = fixture.window.size();

    fixture.window.close();

    QCOMPARE(fixture.preferences.windowSize().has_value(), isRemembered);
    if (isRemembered)
        QCOMPARE(*fixture.preferences.windowSize(), shown);
}

void AppDelegateTest::terminatingSavesTheSizeAndEndsWithZero()
{
    Fixture fixture;
    fixture.launch();

    QTimer::singleShot(0, &fixture.delegate, &AppDelegate::terminate);

    QCOMPARE(QApplication::exec(), 0);
    QCOMPARE(fixture.preferences.windowSize(), QSizeF(fixture.window.size()));
}

void AppDelegateTest::theMenuBarHoldsWhatWorksToday()
{
    const MainWindow window;

    const QList<QAction*> menus = window.menuBar()->actions();
    QCOMPARE(menus.size(), 2);
    QCOMPARE(menus.at(1)->text(), u"Édition"_s);
    const QList<QAction*> entries = menus.at(0)->menu()->actions();
    QCOMPARE(entries.first()->text(), u"À propos de Reelhouse"_s);
    QCOMPARE(entries.last()->text(), u"Quitter"_s);
    QCOMPARE(entries.last()->shortcut(), QKeySequence(u"Ctrl+Q"_s));
}

REELHOUSE_TEST(AppDelegateTest)

#include "AppDelegateTest.moc"
