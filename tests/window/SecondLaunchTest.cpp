#include "tests/support/TestMain.h"
#include "tests/support/Waiting.h"
#include "tests/window/RunningProgram.h"
#include "tests/window/TestHome.h"
#include "tests/window/VirtualDesktop.h"

#include <QtTest/QTest>

#include <csignal>

using namespace Qt::StringLiterals;

namespace reelhouse::tests {

/// The real program started while it runs already.
class SecondLaunchTest final : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void itRaisesTheRunningWindowAndEnds_data();
    void itRaisesTheRunningWindowAndEnds();
    void ofTwoStartedAtOnceOneStays();
    void anotherHomeRunsBeside();
};

void SecondLaunchTest::initTestCase()
{
    if (!VirtualDesktop::isPossible())
        QSKIP("Xvfb is not installed: scripts/setup installs it.");
}

void SecondLaunchTest::itRaisesTheRunningWindowAndEnds_data()
{
    QTest::addColumn<bool>("hasWindowManager");

    QTest::newRow("bare screen") << false;
    QTest::newRow("window manager") << true;
}

void SecondLaunchTest::itRaisesTheRunningWindowAndEnds()
{
    QFETCH(bool, hasWindowManager);
    VirtualDesktop desktop;
    if (hasWindowManager)
        QVERIFY(desktop.startWindowManager());
    const TestHome home;
    const TestHome otherHome;
    RunningProgram running(home, desktop);
    QVERIFY(running.waitForWindow().has_value());
    RunningProgram cover(otherHome, desktop);
    QVERIFY(cover.waitForWindow().has_value());
    QCOMPARE(desktop.screen().find(u"Spoolwright"_s)->processId, cover.processId());
    const QStringList before = home.everything();

    RunningProgram second(home, desktop);

    QCOMPARE(second.waitForEnd(), 0);
    QVERIFY(waitUntil(
        [&] { return desktop.screen().find(u"Spoolwright"_s)->processId == running.processId(); }));
    QVERIFY(running.isRunning());
    QCOMPARE(home.everything(), before);
    QCOMPARE(second.output(), QByteArray());
}

void SecondLaunchTest::ofTwoStartedAtOnceOneStays()
{
    VirtualDesktop desktop;
    const TestHome home;
    RunningProgram one(home, desktop);
    RunningProgram other(home, desktop);

    QVERIFY(waitUntil([&] { return !one.isRunning() || !other.isRunning(); }));
    RunningProgram& stays = one.isRunning() ? one : other;
    RunningProgram& ends = one.isRunning() ? other : one;

    QCOMPARE(ends.waitForEnd(), 0);
    QVERIFY(stays.waitForWindow().has_value());
    QCOMPARE(stays.endWith(SIGTERM), 0);
    const auto spools = home.spoolsInStore();
    QVERIFY(spools.has_value());
    QCOMPARE(spools->size(), 8);
}

void SecondLaunchTest::anotherHomeRunsBeside()
{
    VirtualDesktop desktop;
    const TestHome home;
    const TestHome otherHome;
    RunningProgram one(home, desktop);
    RunningProgram other(otherHome, desktop);

    QVERIFY(one.waitForWindow().has_value());
    QVERIFY(other.waitForWindow().has_value());
    QCOMPARE(one.endWith(SIGTERM), 0);
    QCOMPARE(other.endWith(SIGTERM), 0);

    QVERIFY(home.spoolsInStore().has_value());
    QVERIFY(otherHome.spoolsInStore().has_value());
}

} // namespace reelhouse::tests

using reelhouse::tests::SecondLaunchTest;
REELHOUSE_TEST(SecondLaunchTest)

#include "SecondLaunchTest.moc"
