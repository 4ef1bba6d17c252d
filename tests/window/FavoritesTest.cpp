#include "tests/support/KeySymbols.h"
#include "tests/support/TestMain.h"
#include "tests/support/Waiting.h"
#include "tests/window/RunningProgram.h"
#include "tests/window/TestHome.h"
#include "tests/window/VirtualDesktop.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtTest/QTest>

#include <csignal>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace reelhouse::tests {

namespace {

// Rows of the sidebar below the window's upper edge; each is 33 pixels high.
constexpr int firstFavoriteY = 124;
constexpr int sidebarRow = 33;

} // namespace

/// Filters, saves, applies, renames, reorders and removes favourites in the real program, with the
/// mouse and the keyboard, and looks at the preference file.
class FavoritesTest final : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void aFavoriteLives();

private:
    bool waitForSheet(const QString& title) const;
    bool rest() const { return m_desktop->screen().waitForRest(m_desktop->screen().area(), 300ms); }
    bool waitForNames(const QStringList& expected) const;
    QStringList savedNames() const;
    /// Saves what is searched for through the star, under the name that is suggested.
    void saveByKeyboard() const;
    void clickSidebar(int row) const;
    QImage list() const;

    std::unique_ptr<VirtualDesktop> m_desktop;
    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<RunningProgram> m_program;
    QRect m_window;
};

void FavoritesTest::initTestCase()
{
    if (!VirtualDesktop::isPossible())
        QSKIP("Xvfb is not installed: scripts/setup installs it.");
}

bool FavoritesTest::waitForSheet(const QString& title) const
{
    const pid_t process = m_program->processId();
    return waitUntil([&] { return m_desktop->screen().find(title, process).has_value(); })
        && rest();
}

QStringList FavoritesTest::savedNames() const
{
    const QByteArray encoded = m_home->preference(u"filterFavorites"_s).toUtf8();
    QStringList names;
    const QJsonArray favorites = QJsonDocument::fromJson(encoded).array();
    for (const QJsonValue favorite : favorites)
        names << favorite[u"name"_s].toString();
    return names;
}

bool FavoritesTest::waitForNames(const QStringList& expected) const
{
    return waitUntil([&] { return savedNames() == expected; }, 10s) && rest();
}

void FavoritesTest::saveByKeyboard() const
{
    Screen& screen = m_desktop->screen();
    screen.pressKey(Key::tab); // "Effacer".
    screen.pressKey(Key::tab); // The star.
    screen.pressKey(' ');
    rest();
    screen.pressKey(Key::down);
    screen.pressKey(Key::enter);
    QVERIFY(waitForSheet(u"Enregistrer un favori"_s));
    screen.pressKey(Key::enter);
    rest();
}

void FavoritesTest::clickSidebar(int row) const
{
    Screen& screen = m_desktop->screen();
    screen.movePointer(m_window.topLeft() + QPoint(100, firstFavoriteY + row * sidebarRow));
    screen.click();
    rest();
}

QImage FavoritesTest::list() const
{
    const QRect list(m_window.left() + 260, m_window.top() + 170, m_window.width() - 300,
        m_window.height() - 230);
    return m_desktop->screen().picture(list);
}

void FavoritesTest::aFavoriteLives()
{
    m_desktop = std::make_unique<VirtualDesktop>();
    QVERIFY(m_desktop->startWindowManager());
    m_home = std::make_unique<TestHome>();
    m_program = std::make_unique<RunningProgram>(*m_home, *m_desktop);
    const auto window = m_program->waitForWindow();
    QVERIFY(window.has_value());
    m_window = window->area;
    Screen& screen = m_desktop->screen();
    QVERIFY(rest());
    const QImage everything = list();

    // Filtered and saved, twice.
    screen.pressKey('f', {Key::control});
    screen.type("rouge");
    QVERIFY(rest());
    const QImage reds = list();
    QVERIFY(reds != everything);
    saveByKeyboard();
    QVERIFY(waitForNames({u"« rouge »"_s}));
    screen.pressKey('f', {Key::control});
    screen.pressKey(Key::escape);
    QVERIFY(rest());
    QCOMPARE(list(), everything);
    screen.type("violet");
    QVERIFY(rest());
    const QImage violets = list();
    saveByKeyboard();
    QVERIFY(waitForNames({u"« rouge »"_s, u"« violet »"_s}));

    // Applied with the mouse.
    clickSidebar(0);
    QCOMPARE(list(), reds);
    clickSidebar(1);
    QCOMPARE(list(), violets);

    // Applied while another screen is shown.
    clickSidebar(4); // "Types de filament"
    QVERIFY(list() != violets);
    clickSidebar(0);
    QCOMPARE(list(), reds);
    clickSidebar(1);
    QCOMPARE(list(), violets);

    // Reordered, renamed and removed in the sheet.
    clickSidebar(2);
    QVERIFY(waitForSheet(u"Filtres favoris"_s));
    screen.pressKey(Key::down, {Key::control});
    QVERIFY(waitForNames({u"« violet »"_s, u"« rouge »"_s}));
    screen.pressKey(Key::f2);
    screen.type("chauds");
    screen.pressKey(Key::enter);
    QVERIFY(waitForNames({u"« violet »"_s, u"chauds"_s}));
    screen.pressKey(Key::del);
    QVERIFY(waitForSheet(u"Supprimer le favori « chauds » ?"_s));
    screen.pressKey(Key::tab);
    screen.pressKey(Key::enter);
    QVERIFY(waitForNames({u"« violet »"_s}));
    screen.pressKey(Key::escape);
    QVERIFY(rest());
    QCOMPARE(list(), violets);

    QCOMPARE(m_program->endWith(SIGTERM), 0);
    QCOMPARE(savedNames(), QStringList{u"« violet »"_s});
}

} // namespace reelhouse::tests

using reelhouse::tests::FavoritesTest;
REELHOUSE_TEST(FavoritesTest)

#include "FavoritesTest.moc"
