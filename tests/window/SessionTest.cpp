#include "tests/support/KeySymbols.h"
#include "tests/support/TestMain.h"
#include "tests/support/Waiting.h"
#include "tests/window/RunningProgram.h"
#include "tests/window/SessionManager.h"
#include "tests/window/TestHome.h"
#include "tests/window/VirtualDesktop.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtTest/QTest>

#include <csignal>
#include <numeric>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace reelhouse::tests {

/// How the real program ends when not its user but the system wants it to.
class SessionTest final : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void aSignalEndsItInTimeAndNothingIsLost_data();
    void aSignalEndsItInTimeAndNothingIsLost();
    void aSignalWhileItStartsEndsItToo();
    void theEndOfTheSessionEndsItInTimeAndNothingIsLost();
    void failedWritesAreNoEnd();
};

namespace {

/// What the system grants it.
constexpr auto timeToEnd = 2s;

/// Selects a row in the list with the mouse and adds a spool with the keyboard.
void addSpool(Screen& screen, const QRect& window)
{
    screen.movePointer(window.topLeft() + QPoint(window.width() * 2 / 3, 320));
    screen.click();
    screen.pressKey(Key::up, {Key::alt});
}

qint64 spoolsInStore(const TestHome& home)
{
    const auto spools = home.spoolsInStore();
    return spools ? std::accumulate(spools->cbegin(), spools->cend(), qint64(0)) : -1;
}

qint64 spoolsInBackup(const QString& path)
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly))
        return -1;
    qint64 spools = 0;
    for (const QJsonValue filament :
        QJsonDocument::fromJson(file.readAll())[u"filaments"].toArray())
        spools += filament[u"spoolsCount"].toInteger();
    return spools;
}

void compareWithWhatTheProgramLeft(const TestHome& home, qint64 spools)
{
    QCOMPARE(home.preference(u"windowWidth"_s).toDouble(), 1300.0);
    QCOMPARE(home.preference(u"windowHeight"_s).toDouble(), 850.0);
    QVERIFY(!QFile::exists(home.storeFile() + u"-wal"_s));
    QCOMPARE(spoolsInStore(home), spools);
    QCOMPARE(home.backups().size(), 1);
    QCOMPARE(spoolsInBackup(home.backups().first()), spools);
}

/// The signals that a process does something about, by the system's own account.
quint64 caughtSignals(pid_t process)
{
    QFile status(u"/proc/%1/status"_s.arg(process));
    if (!status.open(QFile::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("SigCgt:"))
            return line.mid(7).trimmed().toULongLong(nullptr, 16);
    }
    return 0;
}

} // namespace

void SessionTest::initTestCase()
{
    if (!VirtualDesktop::isPossible())
        QSKIP("Xvfb is not installed: scripts/setup installs it.");
}

void SessionTest::aSignalEndsItInTimeAndNothingIsLost_data()
{
    QTest::addColumn<int>("signal");

    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void SessionTest::aSignalEndsItInTimeAndNothingIsLost()
{
    QFETCH(int, signal);
    VirtualDesktop desktop;
    const TestHome home;
    home.setPreferences({{u"autoBackupOnLaunch"_s, u"false"_s}});
    RunningProgram program(home, desktop);
    const auto window = program.waitForWindow();
    QVERIFY(window.has_value());
    const qint64 spools = spoolsInStore(home);
    addSpool(desktop.screen(), window->area);
    QVERIFY(waitUntil([&] { return spoolsInStore(home) == spools + 1; }));

    QCOMPARE(program.endWith(signal, timeToEnd), 0);

    compareWithWhatTheProgramLeft(home, spools + 1);
    QCOMPARE(program.output(), QByteArray());
}

void SessionTest::aSignalWhileItStartsEndsItToo()
{
    VirtualDesktop desktop;
    const TestHome home;
    RunningProgram program(home, desktop);
    QVERIFY(waitUntil([&] { return desktop.screen().find(u"Spoolwright"_s).has_value(); }));

    QCOMPARE(program.endWith(SIGTERM), 0);

    QVERIFY(home.spoolsInStore().has_value());
}

void SessionTest::theEndOfTheSessionEndsItInTimeAndNothingIsLost()
{
    VirtualDesktop desktop;
    SessionManager manager;
    const TestHome home;
    home.setPreferences({{u"autoBackupOnLaunch"_s, u"false"_s}});
    RunningProgram program(home, desktop, {{u"SESSION_MANAGER"_s, manager.address()}});
    QVERIFY(manager.waitForProgram());
    const auto window = program.waitForWindow();
    QVERIFY(window.has_value());
    const qint64 spools = spoolsInStore(home);
    addSpool(desktop.screen(), window->area);
    QVERIFY(waitUntil([&] { return spoolsInStore(home) == spools + 1; }));

    QVERIFY(manager.endSession(timeToEnd));
    QCOMPARE(program.waitForEnd(timeToEnd), 0);

    compareWithWhatTheProgramLeft(home, spools + 1);
    QCOMPARE(program.output(), QByteArray());
}

void SessionTest::failedWritesAreNoEnd()
{
    VirtualDesktop desktop;
    const TestHome home;
    RunningProgram program(home, desktop);
    QVERIFY(program.waitForWindow().has_value());

    for (const int signal : {SIGPIPE, SIGXFSZ}) {
        QVERIFY((caughtSignals(program.processId()) >> (signal - 1) & 1) == 1);
        kill(program.processId(), signal);
    }

    QCOMPARE(program.endWith(SIGTERM), 0);
    QVERIFY(home.spoolsInStore().has_value());
}

} // namespace reelhouse::tests

using reelhouse::tests::SessionTest;
REELHOUSE_TEST(SessionTest)

#include "SessionTest.moc"
