#include "tests/support/TestMain.h"
#include "tests/support/Waiting.h"
#include "tests/window/RunningProgram.h"
#include "tests/window/StockRow.h"
#include "tests/window/TestHome.h"
#include "tests/window/VirtualDesktop.h"

#include <QtTest/QTest>

#include <atomic>
#include <csignal>
#include <random>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace reelhouse::tests {

namespace {

/// In the midst of the list that the sample stock makes.
QPoint someRow(const QRect& window)
{
    return window.topLeft() + QPoint(window.width() * 2 / 3, 320);
}

QPoint cornerOf(const QRect& window)
{
    return window.bottomRight() - QPoint(4, 4);
}

/// The one filament whose count differs, or 0.
qint64 changedFilament(const QMap<qint64, qint64>& before, const QMap<qint64, qint64>& after)
{
    qint64 changed = 0;
    for (auto row = before.cbegin(); row != before.cend(); ++row) {
        if (after.value(row.key()) == row.value())
            continue;
        if (changed != 0)
            return 0;
        changed = row.key();
    }
    return changed;
}

/// How often the program is killed; scripts/check --full asks for more.
int killRounds()
{
    const int rounds = qEnvironmentVariableIntValue("KILL_ROUNDS");
    return rounds > 0 ? rounds : 3;
}

} // namespace

/// Works the buttons of a row of the real program with the mouse, and looks at the store's file.
class RowButtonsTest final : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void clicksAreInTheFileAMomentLater();
    void quickClicksAllCount();
    void aKillLosesNothingThatWasShown();

private:
    static bool clickAndSee(Screen& screen, const StockRow& row, bool plus);
};

void RowButtonsTest::initTestCase()
{
    if (!VirtualDesktop::isPossible())
        QSKIP("Xvfb is not installed: scripts/setup installs it.");
}

/// Clicks one button and waits until the row shows another number.
bool RowButtonsTest::clickAndSee(Screen& screen, const StockRow& row, bool plus)
{
    const QImage before = screen.picture(row.count);
    screen.movePointer(plus ? row.plus : row.minus);
    screen.click();
    return waitUntil([&] { return screen.picture(row.count) != before; }, 5s);
}

void RowButtonsTest::clicksAreInTheFileAMomentLater()
{
    VirtualDesktop desktop;
    const TestHome home;
    RunningProgram program(home, desktop);
    const auto window = program.waitForWindow();
    QVERIFY(window.has_value());
    const auto row
        = StockRow::hover(desktop.screen(), someRow(window->area), cornerOf(window->area));
    QVERIFY(row.has_value());
    const auto before = home.spoolsInStore();
    QVERIFY(before.has_value());

    QVERIFY(clickAndSee(desktop.screen(), *row, true));
    const auto raised = home.spoolsInStore();
    QVERIFY(raised.has_value());
    const qint64 filament = changedFilament(*before, *raised);
    QVERIFY(filament != 0);
    QCOMPARE(raised->value(filament), before->value(filament) + 1);

    QVERIFY(clickAndSee(desktop.screen(), *row, false));
    QCOMPARE(home.spoolsInStore(), before);
}

void RowButtonsTest::quickClicksAllCount()
{
    VirtualDesktop desktop;
    const TestHome home;
    RunningProgram program(home, desktop);
    const auto window = program.waitForWindow();
    QVERIFY(window.has_value());
    const auto row
        = StockRow::hover(desktop.screen(), someRow(window->area), cornerOf(window->area));
    QVERIFY(row.has_value());
    const auto before = home.spoolsInStore();
    QVERIFY(before.has_value());

    // Faster than a double click.
    desktop.screen().movePointer(row->plus);
    for (int click = 0; click < 5; ++click)
        desktop.screen().click();
    desktop.screen().waitForRest(window->area);
    QCOMPARE(program.endWith(SIGTERM), 0);

    const auto after = home.spoolsInStore();
    QVERIFY(after.has_value());
    const qint64 filament = changedFilament(*before, *after);
    QVERIFY(filament != 0);
    QCOMPARE(after->value(filament), before->value(filament) + 5);
}

/// A change that the row shows was saved in the turn before: the store has every one of them, and
/// of the clicks after it, whole ones only.
void RowButtonsTest::aKillLosesNothingThatWasShown()
{
    VirtualDesktop desktop;
    Screen& screen = desktop.screen();
    const TestHome home;
    std::mt19937 random(std::random_device{}());
    std::optional<StockRow> row;
    qint64 filament = 0;
    int seenInAll = 0;
    for (int round = 0; round < killRounds(); ++round) {
        RunningProgram program(home, desktop);
        const auto window = program.waitForWindow();
        QVERIFY(window.has_value());
        if (!row) {
            row = StockRow::hover(screen, someRow(window->area), cornerOf(window->area));
            QVERIFY(row.has_value());
            const auto before = home.spoolsInStore();
            QVERIFY(before.has_value());
            QVERIFY(clickAndSee(screen, *row, true));
            const auto after = home.spoolsInStore();
            QVERIFY(after.has_value());
            filament = changedFilament(*before, *after);
            QVERIFY(filament != 0);
        }
        screen.movePointer(row->plus);
        screen.waitForRest(window->area, 200ms);
        const auto atFirst = home.spoolsInStore();
        QVERIFY(atFirst.has_value());

        QList<qint64> expected{atFirst->value(filament)}; // After each click, the first none.
        qsizetype seen = 0;
        std::atomic<bool> killed = false;
        std::thread killer([&, pause = std::chrono::microseconds(random() % 600'000)] {
            std::this_thread::sleep_for(pause);
            killed = true; // First: what shows from now on may be a vanishing window.
            kill(program.processId(), SIGKILL);
        });
        while (!killed) {
            const bool plus = expected.last() < 3 || random() % 2 == 0;
            const QImage before = screen.picture(row->count);
            screen.movePointer(plus ? row->plus : row->minus);
            expected.append(expected.last() + (plus ? 1 : -1));
            screen.click();
            waitUntil([&] { return killed || screen.picture(row->count) != before; }, 5s);
            if (!killed)
                seen = expected.size() - 1;
        }
        killer.join();
        program.waitForEnd();

        const auto kept = home.spoolsInStore();
        QVERIFY2(kept.has_value(), "The store is not whole any more.");
        const qsizetype oldest = expected.indexOf(kept->value(filament), seen);
        QVERIFY2(oldest >= 0,
            qPrintable(
                u"Round %1: %2 of %3 clicks were shown, and the store has %4 after %5."_s.arg(round)
                    .arg(seen)
                    .arg(expected.size() - 1)
                    .arg(kept->value(filament))
                    .arg(expected.first())));
        QCOMPARE(kept->size(), 8);
        seenInAll += int(seen);
    }
    QVERIFY(seenInAll > 0);

    RunningProgram program(home, desktop);
    QVERIFY(program.waitForWindow().has_value());
    QCOMPARE(program.endWith(SIGTERM), 0);
    QVERIFY(home.spoolsInStore().has_value());
}

} // namespace reelhouse::tests

using reelhouse::tests::RowButtonsTest;
REELHOUSE_TEST(RowButtonsTest)

#include "RowButtonsTest.moc"
