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

/// How the user ends the real program, and what it leaves behind.
class QuitTest final : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void closingAsksOnceAndAnnulerKeepsItRunning();
    void closingEndsItWithoutAQuestionWhenNoneIsWanted_data();
    void closingEndsItWithoutAQuestionWhenNoneIsWanted();
    void aSignalEndsItWhileTheQuestionStands();
    void backupsThatFailAreSilent_data();
    void backupsThatFailAreSilent();
};

namespace {

const QString quitQuestion = u"Quitter Spoolwright ?"_s;

} // namespace

void QuitTest::initTestCase()
{
    if (!VirtualDesktop::isPossible())
        QSKIP("Xvfb is not installed: scripts/setup installs it.");
}

void QuitTest::closingAsksOnceAndAnnulerKeepsItRunning()
{
    VirtualDesktop desktop;
    QVERIFY(desktop.startWindowManager());
    const TestHome home;
    home.setPreferences({{u"autoBackupOnLaunch"_s, u"false"_s}});
    RunningProgram program(home, desktop);
    const auto window = program.waitForWindow();
    QVERIFY(window.has_value());
    const auto question = [&] { return desktop.screen().find(quitQuestion, program.processId()); };

    // While a sheet is open the window stays, and so does what was typed there.
    const auto sheet
        = [&] { return desktop.screen().find(u"Ajouter un filament"_s, program.processId()); };
    desktop.screen().pressKey('n', {Key::control});
    QVERIFY(waitUntil([&] { return sheet().has_value(); }));
    QVERIFY(desktop.screen().waitForRest(sheet()->area, 300ms));
    desktop.screen().close(*window);
    desktop.screen().type("pla");
    QVERIFY(desktop.screen().waitForRest(sheet()->area, 300ms));
    QVERIFY(sheet().has_value());
    QVERIFY(!question().has_value());
    desktop.screen().close(*sheet());
    QVERIFY(waitUntil([&] { return !sheet().has_value(); }));
    QVERIFY(desktop.screen().waitForRest(window->area, 300ms));

    desktop.screen().close(*window);
    QVERIFY(waitUntil([&] { return question().has_value(); }));
    QCOMPARE(home.preference(u"windowWidth"_s), QString::number(window->area.width()));
    desktop.screen().close(*question()); // dismissed: "Annuler"
    QVERIFY(waitUntil([&] { return !question().has_value(); }));
    QVERIFY(program.isRunning());
    QCOMPARE(home.backups(), QStringList());

    desktop.screen().close(*window);
    QVERIFY(waitUntil([&] { return question().has_value(); }));
    QVERIFY(desktop.screen().waitForRest(question()->area));
    desktop.screen().pressReturn(); // "Quitter"
    QCOMPARE(program.waitForEnd(), 0);
    QCOMPARE(home.backups().size(), 1);
    QCOMPARE(home.preference(u"windowHeight"_s), QString::number(window->area.height()));
    QCOMPARE(program.output(), QByteArray());
}

void QuitTest::closingEndsItWithoutAQuestionWhenNoneIsWanted_data()
{
    QTest::addColumn<QString>("backsUp");
    QTest::addColumn<int>("backups");

    QTest::newRow("with a backup") << u"true"_s << 1;
    QTest::newRow("without a backup") << u"false"_s << 0;
}

void QuitTest::closingEndsItWithoutAQuestionWhenNoneIsWanted()
{
    QFETCH(QString, backsUp);
    VirtualDesktop desktop;
    const TestHome home;
    home.setPreferences({{u"confirmOnQuit"_s, u"false"_s}, {u"autoBackupOnLaunch"_s, u"false"_s},
        {u"rememberWindowState"_s, u"false"_s}, {u"autoBackupOnQuit"_s, backsUp}});
    RunningProgram program(home, desktop);
    const auto window = program.waitForWindow();
    QVERIFY(window.has_value());

    desktop.screen().close(*window);

    QCOMPARE(program.waitForEnd(), 0);
    QTEST(int(home.backups().size()), "backups");
    QCOMPARE(home.preference(u"windowWidth"_s), QString());
    QCOMPARE(program.output(), QByteArray());
}

void QuitTest::aSignalEndsItWhileTheQuestionStands()
{
    VirtualDesktop desktop;
    const TestHome home;
    home.setPreferences({{u"autoBackupOnLaunch"_s, u"false"_s}});
    RunningProgram program(home, desktop);
    const auto window = program.waitForWindow();
    QVERIFY(window.has_value());
    desktop.screen().close(*window);
    QVERIFY(waitUntil(
        [&] { return desktop.screen().find(quitQuestion, program.processId()).has_value(); }));

    QCOMPARE(program.endWith(SIGTERM), 0);

    QCOMPARE(home.backups().size(), 1);
    QCOMPARE(home.spoolsInStore()->size(), 8);
}

void QuitTest::backupsThatFailAreSilent_data()
{
    QTest::addColumn<bool>("isFolder");

    QTest::newRow("a file where the folder should be") << false;
    QTest::newRow("a folder closed to the user") << true;
}

void QuitTest::backupsThatFailAreSilent()
{
    QFETCH(bool, isFolder);
    VirtualDesktop desktop;
    const TestHome home;
    home.setPreferences({{u"confirmOnQuit"_s, u"false"_s}});
    QVERIFY(QDir().mkpath(home.dataFolder()));
    QFile inTheWay(home.dataFolder() + u"/Backups"_s);
    if (isFolder)
        QVERIFY(QDir().mkdir(inTheWay.fileName()));
    else
        QVERIFY(inTheWay.open(QFile::WriteOnly));
    QVERIFY(inTheWay.setPermissions({}));
    RunningProgram program(home, desktop);
    const auto window = program.waitForWindow();
    QVERIFY2(window.has_value(), "The launch does not wait for a backup that fails.");

    desktop.screen().close(*window);

    QCOMPARE(program.waitForEnd(), 0);
    QCOMPARE(program.output(), QByteArray());
    QVERIFY(inTheWay.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QCOMPARE(home.backups(), QStringList());
    QCOMPARE(home.spoolsInStore()->size(), 8);
}

} // namespace reelhouse::tests

using reelhouse::tests::QuitTest;
REELHOUSE_TEST(QuitTest)

#include "QuitTest.moc"
