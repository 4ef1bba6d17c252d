#include "tests/support/TestMain.h"
#include "tests/support/Waiting.h"
#include "tests/window/RunningProgram.h"
#include "tests/window/TestHome.h"
#include "tests/window/VirtualDesktop.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtTest/QTest>

#include <csignal>
#include <utility>

using namespace Qt::StringLiterals;

namespace reelhouse::tests {

/// How the real program starts and ends.
class StartTest final : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void aFirstStartShowsTheWindowAndKeepsTheSampleStock();
    void theWindowHasItsSavedSizeInTheMiddleOfTheScreen_data();
    void theWindowHasItsSavedSizeInTheMiddleOfTheScreen();
    void theSizeIsNotRestoredWhenTheUserDoesNotWantIt();
    void theSizeStaysFromRunToRun_data();
    void theSizeStaysFromRunToRun();
    void theContentIsNeverSmallerThanItNeeds();
    void afterAKillItStartsAsAlways();
    void anUnusableStoreIsToldAndLeftAlone();
    void theFirstBackupComesBeforeTheSampleStock();
    void aLaunchKeepsTwentyBackups();
};

void StartTest::initTestCase()
{
    if (!VirtualDesktop::isPossible())
        QSKIP("Xvfb is not installed: scripts/setup installs it.");
}

void StartTest::aFirstStartShowsTheWindowAndKeepsTheSampleStock()
{
    VirtualDesktop desktop;
    const TestHome home;
    RunningProgram program(home, desktop);

    const auto window = program.waitForWindow();
    QVERIFY(window.has_value());
    QCOMPARE(window->area, QRect(50, 75, 1300, 850));
    QCOMPARE(program.endWith(SIGTERM), 0);

    const auto spools = home.spoolsInStore();
    QVERIFY(spools.has_value());
    QCOMPARE(spools->size(), 8);
    QCOMPARE(home.preference(u"didSeedSampleData"_s), u"true"_s);
    QCOMPARE(program.output(), QByteArray());
}

void StartTest::theWindowHasItsSavedSizeInTheMiddleOfTheScreen_data()
{
    QTest::addColumn<QSize>("screen");
    QTest::addColumn<QString>("width");
    QTest::addColumn<QString>("height");
    QTest::addColumn<QRect>("expected");

    const QSize large(1400, 1000);
    QTest::newRow("saved") << large << u"1200"_s << u"900"_s << QRect(100, 50, 1200, 900);
    QTest::newRow("larger than the screen")
        << large << u"3000"_s << u"2000"_s << QRect(20, 20, 1360, 960);
    QTest::newRow("a width without a height")
        << large << u"1200"_s << QString() << QRect(50, 75, 1300, 850);
    QTest::newRow("a height without a width")
        << large << QString() << u"900"_s << QRect(50, 75, 1300, 850);
    QTest::newRow("no number") << large << u"wide"_s << u"900"_s << QRect(50, 75, 1300, 850);
    QTest::newRow("a small laptop")
        << QSize(1366, 768) << QString() << QString() << QRect(33, 20, 1300, 728);
}

void StartTest::theWindowHasItsSavedSizeInTheMiddleOfTheScreen()
{
    QFETCH(QSize, screen);
    QFETCH(QString, width);
    QFETCH(QString, height);
    QFETCH(QRect, expected);
    VirtualDesktop desktop(screen);
    const TestHome home;
    QMap<QString, QString> preferences;
    if (!width.isEmpty())
        preferences.insert(u"windowWidth"_s, width);
    if (!height.isEmpty())
        preferences.insert(u"windowHeight"_s, height);
    home.setPreferences(preferences);

    RunningProgram program(home, desktop);
    const auto window = program.waitForWindow();

    QVERIFY(window.has_value());
    QCOMPARE(window->area, expected);
}

void StartTest::theSizeIsNotRestoredWhenTheUserDoesNotWantIt()
{
    VirtualDesktop desktop;
    const TestHome home;
    home.setPreferences({{u"rememberWindowState"_s, u"false"_s}, {u"windowWidth"_s, u"1200"_s},
        {u"windowHeight"_s, u"900"_s}});
    RunningProgram program(home, desktop);

    const auto window = program.waitForWindow();
    QVERIFY(window.has_value());
    QCOMPARE(window->area.size(), QSize(1300, 850));
    QCOMPARE(program.endWith(SIGTERM), 0);

    QCOMPARE(home.preference(u"windowWidth"_s), u"1200"_s);
    QCOMPARE(home.preference(u"windowHeight"_s), u"900"_s);
}

void StartTest::theSizeStaysFromRunToRun_data()
{
    QTest::addColumn<QString>("scale");

    QTest::newRow("100 %") << u"1"_s;
    QTest::newRow("125 %") << u"1.25"_s;
    QTest::newRow("150 %") << u"1.5"_s;
}

void StartTest::theSizeStaysFromRunToRun()
{
    QFETCH(QString, scale);
    VirtualDesktop desktop(QSize(2100, 1500));
    QVERIFY(desktop.startWindowManager());
    const TestHome home;
    QSize shown;
    QSize saved;
    for (int run = 0; run < 3; ++run) {
        RunningProgram program(home, desktop, {{u"QT_SCALE_FACTOR"_s, scale}});
        const auto window = program.waitForWindow();
        QVERIFY(window.has_value());
        QCOMPARE(program.endWith(SIGTERM), 0);

        const QSize previouslyShown = std::exchange(shown, window->area.size());
        const QSize previouslySaved = std::exchange(saved,
            QSize(home.preference(u"windowWidth"_s).toInt(),
                home.preference(u"windowHeight"_s).toInt()));
        if (run > 0) {
            QCOMPARE(shown, previouslyShown);
            QCOMPARE(saved, previouslySaved);
        }
    }
    // Where a pixel of the screen is not one of the window, rounding may cost one.
    const QSize lost = QSize(1300, 850) - saved;
    QVERIFY(lost.width() >= 0 && lost.width() <= 1 && lost.height() >= 0 && lost.height() <= 1);
    QVERIFY(scale != u"1" || lost == QSize(0, 0));
}

void StartTest::theContentIsNeverSmallerThanItNeeds()
{
    VirtualDesktop desktop;
    const TestHome home;
    home.setPreferences({{u"windowWidth"_s, u"300"_s}, {u"windowHeight"_s, u"200"_s}});
    RunningProgram program(home, desktop);

    const auto window = program.waitForWindow();

    QVERIFY(window.has_value());
    const QSize smallest = desktop.screen().smallestSize(*window);
    QCOMPARE(window->area.size(), smallest);
    QCOMPARE(smallest.width(), 1100);
    const int menuBar = smallest.height() - 800;
    QVERIFY2(menuBar > 15 && menuBar < 40, qPrintable(QString::number(menuBar)));
}

void StartTest::afterAKillItStartsAsAlways()
{
    VirtualDesktop desktop;
    const TestHome home;
    {
        RunningProgram killed(home, desktop);
        QVERIFY(killed.waitForWindow().has_value());
        QCOMPARE(killed.endWith(SIGKILL), -1);
    }

    RunningProgram program(home, desktop);
    QVERIFY(program.waitForWindow().has_value());
    QCOMPARE(program.endWith(SIGTERM), 0);

    const auto spools = home.spoolsInStore();
    QVERIFY(spools.has_value());
    QCOMPARE(spools->size(), 8);
}

void StartTest::anUnusableStoreIsToldAndLeftAlone()
{
    VirtualDesktop desktop;
    const TestHome home;
    QVERIFY(QDir().mkpath(home.dataFolder()));
    const QByteArray bytes = QByteArray("Not a database at all. ").repeated(300);
    QFile file(home.storeFile());
    QVERIFY(file.open(QFile::WriteOnly));
    file.write(bytes);
    file.close();

    RunningProgram program(home, desktop);
    const QString alert = u"Impossible d'ouvrir la base de données"_s;
    QVERIFY(waitUntil([&] { return desktop.screen().find(alert).has_value(); }));
    QCOMPARE(program.endWith(SIGTERM), 0);

    QVERIFY(file.open(QFile::ReadOnly));
    QCOMPARE(file.readAll(), bytes);
    QCOMPARE(home.preference(u"didSeedSampleData"_s), QString());
}

void StartTest::theFirstBackupComesBeforeTheSampleStock()
{
    VirtualDesktop desktop;
    const TestHome home;
    RunningProgram program(home, desktop);
    QVERIFY(waitUntil([&] { return home.backups().size() == 1; }));

    QFile backup(home.backups().constFirst());
    QVERIFY(backup.open(QFile::ReadOnly));
    QVERIFY(backup.readAll().contains("\"filaments\" : [\n\n  ],"));
    QVERIFY(waitUntil([&] { return home.spoolsInStore()->size() == 8; }));
    QCOMPARE(home.backups().size(), 1);
}

void StartTest::aLaunchKeepsTwentyBackups()
{
    VirtualDesktop desktop;
    const TestHome home;
    const QDir folder(home.dataFolder() + u"/Backups"_s);
    QVERIFY(QDir().mkpath(folder.path()));
    for (int number = 1; number <= 21; ++number) {
        QFile file(folder.filePath(u"ancien_%1.json"_s.arg(number, 2, 10, QChar(u'0'))));
        QVERIFY(file.open(QFile::WriteOnly));
        QTest::qSleep(12); // File systems tell moments apart by the kernel's ticks.
    }
    RunningProgram program(home, desktop);
    QVERIFY(waitUntil([&] { return home.backups().size() == 20; }));

    const QStringList left = home.backups();
    QCOMPARE(left.constFirst(), folder.filePath(u"ancien_03.json"_s));
    QVERIFY2(left.constLast().contains(u"/sauvegarde_"_s), qPrintable(left.constLast()));
}

} // namespace reelhouse::tests

using reelhouse::tests::StartTest;
REELHOUSE_TEST(StartTest)

#include "StartTest.moc"
