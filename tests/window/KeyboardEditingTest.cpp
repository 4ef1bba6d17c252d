#include "tests/support/KeySymbols.h"
#include "tests/support/TestMain.h"
#include "tests/support/Waiting.h"
#include "tests/window/RunningProgram.h"
#include "tests/window/TestHome.h"
#include "tests/window/VirtualDesktop.h"

#include <QtCore/QDateTime>
#include <QtTest/QTest>

#include <csignal>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace reelhouse::tests {

namespace {

constexpr int sampleFilaments = 8;

} // namespace

/// Works the real program with the keyboard alone and looks at the store's file.
class KeyboardEditingTest final : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void aFilamentLivesAndIsUndone();

private:
    bool waitForSheet(const QString& title) const;
    bool waitForWindowAlone() const;
    bool waitForRows(const QStringList& expected) const;
    QStringList rows() const { return m_home->filamentsInStore().value_or(QStringList()); }
    void tab(int times = 1) const;

    std::unique_ptr<VirtualDesktop> m_desktop;
    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<RunningProgram> m_program;
};

void KeyboardEditingTest::initTestCase()
{
    if (!VirtualDesktop::isPossible())
        QSKIP("Xvfb is not installed: scripts/setup installs it.");
}

bool KeyboardEditingTest::waitForSheet(const QString& title) const
{
    Screen& screen = m_desktop->screen();
    const pid_t process = m_program->processId();
    return waitUntil([&] { return screen.find(title, process).has_value(); })
        && screen.waitForRest(screen.area(), 300ms);
}

bool KeyboardEditingTest::waitForWindowAlone() const
{
    Screen& screen = m_desktop->screen();
    const auto ownWindows = [&] {
        int count = 0;
        for (const Screen::Window& window : screen.windows())
            count += window.processId == m_program->processId() ? 1 : 0;
        return count;
    };
    return waitUntil([&] { return ownWindows() == 1; }) && screen.waitForRest(screen.area(), 300ms);
}

bool KeyboardEditingTest::waitForRows(const QStringList& expected) const
{
    return waitUntil([&] { return rows() == expected; }, 10s);
}

void KeyboardEditingTest::tab(int times) const
{
    for (int press = 0; press < times; ++press)
        m_desktop->screen().pressKey(Key::tab);
}

void KeyboardEditingTest::aFilamentLivesAndIsUndone()
{
    m_desktop = std::make_unique<VirtualDesktop>();
    QVERIFY(m_desktop->startWindowManager());
    m_home = std::make_unique<TestHome>();
    m_program = std::make_unique<RunningProgram>(*m_home, *m_desktop);
    QVERIFY(m_program->waitForWindow().has_value());
    Screen& screen = m_desktop->screen();
    const QStringList atFirst = rows();
    QCOMPARE(atFirst.size(), sampleFilaments);

    // Added: type, brand, range with a space in its name, place, counts, no colour, name, notes.
    const qint64 before = QDateTime::currentMSecsSinceEpoch();
    screen.pressKey('n', {Key::control});
    QVERIFY(waitForSheet(u"Ajouter un filament"_s));
    screen.type("tpu");
    tab();
    screen.type("prus");
    tab();
    screen.type("tpu 8");
    tab();
    screen.type("tiroir 2");
    tab();
    screen.type("12");
    tab();
    screen.type("3");
    tab(2);
    screen.type("vert essai");
    tab();
    screen.type("ligne");
    screen.pressKey(Key::enter);
    screen.pressKey(Key::enter, {Key::control});
    QVERIFY(waitForWindowAlone());
    QVERIFY(waitUntil([&] { return rows().size() == sampleFilaments + 1; }));
    const QStringList added = rows();
    QCOMPARE(added.mid(0, sampleFilaments), atFirst);
    const QString& newRow = added.last();
    QCOMPARE(newRow.section(u'|', 0, 9),
        u"9|TPU|Prusament|TPU 85A|Tiroir 2|12|3|#4CAF50|vert essai|ligne\n"_s);
    const qint64 date = newRow.section(u'|', 10).toLongLong();
    QVERIFY(date >= before);
    QVERIFY(date <= QDateTime::currentMSecsSinceEpoch());

    // Found again and changed: one spool, no range.
    screen.pressKey('f', {Key::control});
    screen.type("vert essai");
    QVERIFY(screen.waitForRest(screen.area(), 300ms));
    tab(3); // "Effacer", the favourites, the list.
    screen.pressKey(Key::enter);
    QVERIFY(waitForSheet(u"vert essai"_s));
    tab(2);
    screen.type("aucune");
    tab(2);
    screen.type("1");
    screen.pressKey(Key::enter);
    QVERIFY(waitForWindowAlone());
    const QString changedRow
        = u"9|TPU|Prusament|-|Tiroir 2|1|1|#4CAF50|vert essai|ligne\n|%1"_s.arg(date);
    QVERIFY2(waitForRows(atFirst + QStringList{changedRow}), qPrintable(rows().last()));

    // The last spool is not taken away: the question comes, and its first answer is no.
    screen.pressKey(Key::down, {Key::alt});
    QVERIFY(waitForSheet(u"Supprimer ce filament ?"_s));
    screen.pressKey(Key::enter);
    QVERIFY(waitForWindowAlone());
    QCOMPARE(rows(), atFirst + QStringList{changedRow});
    screen.pressKey(Key::down, {Key::alt});
    QVERIFY(waitForSheet(u"Supprimer ce filament ?"_s));
    tab();
    screen.pressKey(' ');
    QVERIFY(waitForWindowAlone());
    QVERIFY2(waitForRows(atFirst), qPrintable(rows().last()));

    // All of it undone, one action after the other, and done again.
    screen.pressKey('z', {Key::control});
    QVERIFY2(waitForRows(atFirst + QStringList{changedRow}), qPrintable(rows().last()));
    screen.pressKey('z', {Key::control});
    QVERIFY2(waitForRows(added), qPrintable(rows().last()));
    screen.pressKey('z', {Key::control});
    QVERIFY2(waitForRows(atFirst), qPrintable(rows().last()));
    screen.pressKey('z', {Key::control});
    screen.pressKey('z', {Key::control, Key::shift});
    QVERIFY2(waitForRows(added), qPrintable(rows().last()));
    screen.pressKey('z', {Key::control});
    QVERIFY2(waitForRows(atFirst), qPrintable(rows().last()));

    QCOMPARE(m_program->endWith(SIGTERM), 0);
    QCOMPARE(rows(), atFirst);
    QCOMPARE(m_program->output(), QByteArray());
}

} // namespace reelhouse::tests

using reelhouse::tests::KeyboardEditingTest;
REELHOUSE_TEST(KeyboardEditingTest)

#include "KeyboardEditingTest.moc"
