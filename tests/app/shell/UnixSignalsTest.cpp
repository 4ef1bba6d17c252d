#include "app/shell/UnixSignals.h"

#include "tests/support/TestMain.h"

#include <QtCore/QProcess>
#include <QtCore/QTemporaryFile>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <array>
#include <cerrno>
#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace reelhouse {

class UnixSignalsTest final : public QObject {
    Q_OBJECT

private slots:
    void anEndingSignalReachesTheEventLoop_data();
    void anEndingSignalReachesTheEventLoop();
    void nothingIsSentBeforeTheEventLoopTurns();
    void aSignalAfterTheLastOneIsNoEnd();
    void writingToAClosedPipeIsAnError();
    void writingBeyondTheLargestFileIsAnError();
    void programsThatWeStartIgnoreNoSignal();
};

void UnixSignalsTest::anEndingSignalReachesTheEventLoop_data()
{
    QTest::addColumn<int>("signal");

    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void UnixSignalsTest::anEndingSignalReachesTheEventLoop()
{
    QFETCH(int, signal);
    const UnixSignals unixSignals;
    QSignalSpy spy(&unixSignals, &UnixSignals::terminationRequested);

    kill(getpid(), signal);

    QVERIFY(spy.wait());
    QCOMPARE(spy.count(), 1);
}

void UnixSignalsTest::nothingIsSentBeforeTheEventLoopTurns()
{
    const UnixSignals unixSignals;
    QSignalSpy spy(&unixSignals, &UnixSignals::terminationRequested);

    for (int count = 0; count < 1000; ++count) // More than the socket pair holds.
        std::raise(SIGTERM);

    QCOMPARE(spy.count(), 0);
    QVERIFY(spy.wait());
}

void UnixSignalsTest::aSignalAfterTheLastOneIsNoEnd()
{
    {
        const UnixSignals unixSignals;
    }

    QCOMPARE(std::raise(SIGTERM), 0);
    QCOMPARE(std::raise(SIGINT), 0);
    QCOMPARE(std::raise(SIGHUP), 0);
}

void UnixSignalsTest::writingToAClosedPipeIsAnError()
{
    const UnixSignals unixSignals;
    std::array<int, 2> ends{};
    QCOMPARE(pipe(ends.data()), 0);
    close(ends[0]);

    const ssize_t written = write(ends[1], "x", 1);
    const int error = errno;

    QCOMPARE(written, -1);
    QCOMPARE(error, EPIPE);
    close(ends[1]);
}

void UnixSignalsTest::writingBeyondTheLargestFileIsAnError()
{
    const UnixSignals unixSignals;
    QTemporaryFile file;
    QVERIFY(file.open());
    rlimit before{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit small{4, before.rlim_max};
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);

    const ssize_t fits = write(file.handle(), "1234", 4);
    const ssize_t written = write(file.handle(), "5", 1);
    const int error = errno;
    setrlimit(RLIMIT_FSIZE, &before);

    QCOMPARE(fits, 4);
    QCOMPARE(written, -1);
    QCOMPARE(error, EFBIG);
}

void UnixSignalsTest::programsThatWeStartIgnoreNoSignal()
{
    const UnixSignals unixSignals;
    QProcess program;
    program.start(u"grep"_s, {u"SigIgn"_s, u"/proc/self/status"_s});

    QVERIFY(program.waitForFinished());
    const QByteArray ignored = program.readAllStandardOutput().simplified().split(' ').value(1);
    bool isNumber = false;
    const quint64 bits = ignored.toULongLong(&isNumber, 16);
    QVERIFY(isNumber);
    QVERIFY((bits & (quint64(1) << (SIGPIPE - 1))) == 0);
    QVERIFY((bits & (quint64(1) << (SIGXFSZ - 1))) == 0);
}

} // namespace reelhouse

using reelhouse::UnixSignalsTest;
REELHOUSE_TEST(UnixSignalsTest)

#include "UnixSignalsTest.moc"
