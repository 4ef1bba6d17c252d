#include "tests/support/KeySymbols.h"
#include "tests/support/TestMain.h"
#include "tests/support/Waiting.h"
#include "tests/window/RunningProgram.h"
#include "tests/window/TestHome.h"
#include "tests/window/VirtualDesktop.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtTest/QTest>

#include <algorithm>
#include <csignal>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace reelhouse::tests {

namespace {

constexpr qint64 redFilament = 1; ///< "Rouge", two spools, one of them opened.

} // namespace

/// Goes from one end of a task to the other with the keyboard alone, in one run of the real
/// program.
class KeyboardJourneysTest final : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void spoolsAreCounted();
    void aFavoriteIsKeptAndAppliedAgain();
    void whatIsFoundIsPrinted();
    void cleanupTestCase();

private:
    void press(xcb_keysym_t key, const QList<xcb_keysym_t>& held = {}, int times = 1) const;
    void find(const QByteArray& text) const;
    bool rest() const { return m_desktop->screen().waitForRest(m_desktop->screen().area(), 300ms); }
    bool waitForSheet(const QString& title) const;
    bool waitForWindowAlone() const;
    /// "spools|opened ones" of the red filament, as they stand in the store.
    QString redCounts() const;

    std::unique_ptr<VirtualDesktop> m_desktop;
    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<RunningProgram> m_program;
};

void KeyboardJourneysTest::initTestCase()
{
    if (!VirtualDesktop::isPossible())
        QSKIP("Xvfb is not installed: scripts/setup installs it.");
    m_desktop = std::make_unique<VirtualDesktop>();
    QVERIFY(m_desktop->startWindowManager());
    m_home = std::make_unique<TestHome>();
    QVERIFY(QDir().mkpath(m_home->dataFolder()));
    m_program = std::make_unique<RunningProgram>(*m_home, *m_desktop);
    QVERIFY(m_program->waitForWindow().has_value());
}

void KeyboardJourneysTest::press(xcb_keysym_t key, const QList<xcb_keysym_t>& held, int times) const
{
    for (int time = 0; time < times; ++time)
        m_desktop->screen().pressKey(key, held);
}

void KeyboardJourneysTest::find(const QByteArray& text) const
{
    press('f', {Key::control});
    m_desktop->screen().type(text);
    QVERIFY(rest());
}

bool KeyboardJourneysTest::waitForSheet(const QString& title) const
{
    const pid_t process = m_program->processId();
    return waitUntil([&] { return m_desktop->screen().find(title, process).has_value(); })
        && rest();
}

bool KeyboardJourneysTest::waitForWindowAlone() const
{
    const auto isAlone = [this] {
        const QList<Screen::Window> windows = m_desktop->screen().windows();
        return std::ranges::count(windows, m_program->processId(), &Screen::Window::processId) == 1;
    };
    return waitUntil(isAlone) && rest();
}

QString KeyboardJourneysTest::redCounts() const
{
    const QStringList filaments = m_home->filamentsInStore().value_or(QStringList());
    return filaments.value(redFilament - 1).section(u'|', 5, 6);
}

void KeyboardJourneysTest::spoolsAreCounted()
{
    QCOMPARE(redCounts(), u"2|1"_s);
    find("rouge");
    press(Key::tab, {}, 3); // "Effacer", the favourites, the list.

    press(Key::up, {Key::alt});
    QVERIFY(waitUntil([this] { return redCounts() == u"3|1"_s; }));
    press(Key::down, {Key::alt}, 2);
    QVERIFY(waitUntil([this] { return redCounts() == u"1|1"_s; }));
    press('=', {Key::shift}); // "+" on the keyboard of the virtual screen.
    QVERIFY(waitUntil([this] { return redCounts() == u"2|1"_s; }));
    press('-');
    QVERIFY(waitUntil([this] { return redCounts() == u"1|1"_s; }));
}

void KeyboardJourneysTest::aFavoriteIsKeptAndAppliedAgain()
{
    const auto list = [this] {
        const QRect window = m_desktop->screen().find(u"Spoolwright"_s)->area;
        return m_desktop->screen().picture(window.adjusted(250, 170, -20, -60));
    };
    find("rouge");
    const QImage reds = list();
    press(Key::tab, {}, 2); // "Effacer", the favourites.
    press(' ');
    QVERIFY(rest());
    press(Key::down);
    press(Key::enter);
    QVERIFY(waitForSheet(u"Enregistrer un favori"_s));
    press(Key::enter);
    QVERIFY(waitForWindowAlone());
    find("violet");
    QVERIFY(list() != reds);

    // Back to the first column, where the favourite stands below the stock.
    press(Key::tab, {Key::shift}, 6 + 4 + 1 + 1);
    QVERIFY(rest());
    press(Key::home);
    press(Key::down);
    press(Key::enter);

    QVERIFY(rest());
    QVERIFY(list() == reds);
}

void KeyboardJourneysTest::whatIsFoundIsPrinted()
{
    find("rouge");
    press('p', {Key::control});
    QVERIFY(waitForSheet(u"Options d'impression"_s));
    press(Key::tab, {Key::shift}, 2); // From the first box over "Imprimer" to the PDF.
    press(' ');
    QVERIFY(waitForSheet(u"Exporter le stock en PDF"_s));
    m_desktop->screen().type("essai");
    press(Key::enter);
    QVERIFY(waitForWindowAlone());

    QFile report(m_home->dataFolder() + u"/../essai.pdf"_s);
    QVERIFY(waitUntil([&] { return report.size() > 0; }));
    QVERIFY(report.open(QFile::ReadOnly));
    const QByteArray bytes = report.readAll();
    QVERIFY(bytes.startsWith("%PDF-"));
    QVERIFY(bytes.trimmed().endsWith("%%EOF"));
}

void KeyboardJourneysTest::cleanupTestCase()
{
    if (!m_program)
        return;
    QCOMPARE(m_program->endWith(SIGTERM), 0);
    QCOMPARE(m_program->output(), QByteArray());
}

} // namespace reelhouse::tests

using reelhouse::tests::KeyboardJourneysTest;
REELHOUSE_TEST(KeyboardJourneysTest)

#include "KeyboardJourneysTest.moc"
