#include "tests/support/KeySymbols.h"
#include "tests/support/TestMain.h"
#include "tests/support/Waiting.h"
#include "tests/window/RunningProgram.h"
#include "tests/window/TestHome.h"
#include "tests/window/VirtualDesktop.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtTest/QTest>

#include <csignal>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace reelhouse::tests {

/// Works the settings of the real program with the keyboard and looks at what they do to the
/// preference file, the backups and the stock.
class SettingsTest final : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void settingsDoWhatTheySay();
    void wrongTypesCountAsTheDefaults();
    void aDamagedFileIsSetAside_data();
    void aDamagedFileIsSetAside();
};

namespace {

/// What the keyboard does in one running program.
class SettingsHand final {
public:
    SettingsHand(VirtualDesktop& desktop, RunningProgram& program)
        : m_screen(desktop.screen())
        , m_program(program)
    {
    }

    bool waitFor(const QString& title)
    {
        return waitUntil([&] { return m_screen.find(title, m_program.processId()).has_value(); })
            && m_screen.waitForRest(m_screen.area(), 300ms);
    }
    bool waitUntilGone(const QString& title)
    {
        return waitUntil([&] { return !m_screen.find(title, m_program.processId()).has_value(); })
            && m_screen.waitForRest(m_screen.area(), 300ms);
    }
    bool openSettings()
    {
        m_screen.pressKey(',', {Key::control});
        return waitFor(u"Réglages"_s);
    }
    void press(xcb_keysym_t key, int times = 1, const QList<xcb_keysym_t>& held = {})
    {
        for (int press = 0; press < times; ++press)
            m_screen.pressKey(key, held);
    }

private:
    Screen& m_screen;
    RunningProgram& m_program;
};

void makeBackups(const TestHome& home, int count)
{
    QDir().mkpath(home.dataFolder() + u"/Backups"_s);
    for (int number = 0; number < count; ++number) {
        QFile file(home.dataFolder() + u"/Backups/sauvegarde_%1.json"_s.arg(number));
        QVERIFY(file.open(QFile::WriteOnly));
    }
}

} // namespace

void SettingsTest::initTestCase()
{
    if (!VirtualDesktop::isPossible())
        QSKIP("Xvfb is not installed: scripts/setup installs it.");
}

void SettingsTest::settingsDoWhatTheySay()
{
    VirtualDesktop desktop;
    QVERIFY(desktop.startWindowManager());
    const TestHome home;
    home.setPreferences({{u"autoBackupOnLaunch"_s, u"false"_s}, {u"maxBackups"_s, u"4"_s}});
    makeBackups(home, 4);
    {
        RunningProgram program(home, desktop);
        const auto window = program.waitForWindow();
        QVERIFY(window.has_value());
        SettingsHand hand(desktop, program);

        // Changed and called off.
        QVERIFY(hand.openSettings());
        hand.press(' '); // "Confirmer avant de quitter l'application"
        hand.press(Key::escape);
        QVERIFY(hand.waitUntilGone(u"Réglages"_s));
        QCOMPARE(home.preference(u"confirmOnQuit"_s), QString());

        // Purged down to a number that is not saved.
        QVERIFY(hand.openSettings());
        hand.press(Key::tab, 4);
        hand.press(Key::down, 2); // "Garder les 2 dernières sauvegardes"
        hand.press(Key::tab, 2);
        hand.press(' '); // "Purger maintenant"
        QVERIFY(waitUntil([&] { return home.backups().size() == 2; }));
        hand.press(Key::escape);
        QVERIFY(hand.waitUntilGone(u"Réglages"_s));
        QCOMPARE(home.preference(u"maxBackups"_s), u"4"_s);

        // The database cleared, then a change saved.
        QVERIFY(hand.openSettings());
        hand.press(Key::tab, 3, {Key::shift});
        hand.press(' '); // "Effacer la base"
        QVERIFY(hand.waitFor(u"Effacer toute la base de données ?"_s));
        hand.press(Key::tab);
        hand.press(' '); // "Effacer"
        QVERIFY(waitUntil([&] { return home.filamentsInStore() == QStringList(); }));
        QVERIFY(hand.waitUntilGone(u"Effacer toute la base de données ?"_s));
        hand.press(Key::tab, 3);
        hand.press(' '); // "Confirmer avant de quitter l'application"
        hand.press(Key::enter, 1, {Key::control});
        QVERIFY(hand.waitUntilGone(u"Réglages"_s));
        QCOMPARE(home.preference(u"confirmOnQuit"_s), u"false"_s);
        QCOMPARE(home.preference(u"autoBackupOnLaunch"_s), u"false"_s);
        QCOMPARE(home.preference(u"autoBackupOnQuit"_s), u"true"_s);
        QCOMPARE(home.preference(u"rememberWindowState"_s), u"true"_s);
        QCOMPARE(home.preference(u"maxBackups"_s), u"4"_s);
        QCOMPARE(home.preference(u"didSeedSampleData"_s), u"true"_s);

        desktop.screen().close(*window);
        QCOMPARE(program.waitForEnd(), 0);
        QCOMPARE(home.backups().size(), 3);
        QCOMPARE(program.output(), QByteArray());
    }

    RunningProgram again(home, desktop);
    QVERIFY(again.waitForWindow().has_value());
    QCOMPARE(home.filamentsInStore(), QStringList());
    QCOMPARE(again.endWith(SIGTERM), 0);
}

void SettingsTest::wrongTypesCountAsTheDefaults()
{
    VirtualDesktop desktop;
    const TestHome home;
    home.setPreferences({{u"confirmOnQuit"_s, u"0"_s}, {u"autoBackupOnLaunch"_s, u"jamais"_s},
        {u"autoBackupOnQuit"_s, u"\"false, false\""_s}, {u"rememberWindowState"_s, u"non"_s},
        {u"maxBackups"_s, u"beaucoup"_s}, {u"windowWidth"_s, u"1200px"_s},
        {u"windowHeight"_s, u"900"_s}});
    makeBackups(home, 3);
    RunningProgram program(home, desktop);
    const auto window = program.waitForWindow();
    QVERIFY(window.has_value());
    SettingsHand hand(desktop, program);

    QCOMPARE(window->area.size(), QSize(1300, 850));
    QCOMPARE(home.backups().size(), 1); // That of the launch, beside which none is kept.
    const QStringList ofLaunch = home.backups();
    hand.press('q', 1, {Key::control});
    QVERIFY(hand.waitFor(u"Quitter Spoolwright ?"_s));
    hand.press(Key::enter);
    QCOMPARE(program.waitForEnd(), 0);

    QCOMPARE(home.backups().size(), 1);
    QVERIFY(home.backups() != ofLaunch);
    QCOMPARE(home.preference(u"windowWidth"_s), u"1300"_s);
    QCOMPARE(home.preference(u"windowHeight"_s), u"850"_s);
}

void SettingsTest::aDamagedFileIsSetAside_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("cut off") << QByteArray("[General]\nconfirmOnQuit=false\nwindowWi");
    QTest::newRow("nulls") << QByteArray(40, '\0');
}

void SettingsTest::aDamagedFileIsSetAside()
{
    QFETCH(QByteArray, bytes);
    VirtualDesktop desktop;
    const TestHome home;
    home.writePreferenceFile(bytes);
    RunningProgram program(home, desktop);
    const auto window = program.waitForWindow();
    QVERIFY(window.has_value());
    SettingsHand hand(desktop, program);

    desktop.screen().close(*window);
    QVERIFY(hand.waitFor(u"Quitter Spoolwright ?"_s));
    hand.press(Key::enter);
    QCOMPARE(program.waitForEnd(), 0);

    QCOMPARE(home.preference(u"windowWidth"_s), u"1300"_s);
    QCOMPARE(home.preference(u"confirmOnQuit"_s), QString());
    const QDir folder = QFileInfo(home.preferencesFile()).dir();
    const QStringList setAside = folder.entryList({u"Spoolwright.ini.damaged-*"_s});
    QCOMPARE(setAside.size(), 1);
    QFile file(folder.filePath(setAside.first()));
    QVERIFY(file.open(QFile::ReadOnly));
    QCOMPARE(file.readAll(), bytes);
}

} // namespace reelhouse::tests

using reelhouse::tests::SettingsTest;
REELHOUSE_TEST(SettingsTest)

#include "SettingsTest.moc"
