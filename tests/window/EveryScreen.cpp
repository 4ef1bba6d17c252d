#include "tests/window/EveryScreen.h"

#include "tests/support/KeySymbols.h"
#include "tests/support/Waiting.h"
#include "tests/window/RunningProgram.h"
#include "tests/window/ScreenReader.h"
#include "tests/window/VirtualDesktop.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace reelhouse::tests {

EveryScreen::EveryScreen(
    VirtualDesktop& desktop, ScreenReader& reader, RunningProgram& program, Look look)
    : m_desktop(desktop)
    , m_reader(reader)
    , m_program(program)
    , m_look(std::move(look))
{
}

QStringList EveryScreen::visit(const QString& document)
{
    visitLibrary();
    visitMenus();
    visitEditing();
    visitFavorites();
    visitReferences();
    visitTransfer(document);
    visitPrinting();
    visitShell();
    visitEmptyStock();
    return m_missing;
}

QStringList EveryScreen::visitTemporaryStore()
{
    openSheet([] {}, u"temporary-store-alert"_s);
    closeSheet();
    see(u"temporary-store"_s);
    return m_missing;
}

void EveryScreen::visitLibrary()
{
    see(u"list"_s);
    key('2', {Key::control});
    see(u"cards"_s);
    key('3', {Key::control});
    see(u"statistics"_s);
    key('1', {Key::control});
    key('f', {Key::control});
    m_desktop.screen().type("zzz");
    see(u"no-result"_s);
    key(Key::escape);
}

void EveryScreen::visitMenus()
{
    focusList(u"table"_s);
    key(Key::f10, {Key::shift});
    see(u"context-menu"_s);
    closeMenu();
    press(u"Type"_s);
    see(u"capsule-menu"_s);
    closeMenu();
    press(u"Filtres favoris"_s);
    see(u"favorites-menu"_s);
    closeMenu();
}

void EveryScreen::visitEditing()
{
    openSheet([this] { key('n', {Key::control}); }, u"add"_s);
    closeSheet();
    focusList(u"table"_s);
    openSheet([this] { key(Key::enter); }, u"detail"_s);
    closeSheet();
    openSheet([this] { key(Key::del); }, u"delete-filament"_s);
    closeSheet();
}

void EveryScreen::visitFavorites()
{
    key('f', {Key::control});
    m_desktop.screen().type("rouge");
    rest();
    const auto save = [this] {
        press(u"Filtres favoris"_s);
        rest();
        key(Key::down);
        key(Key::enter);
    };
    openSheet(save, u"favorite-save"_s);
    key(Key::enter);
    waitForWindows(--m_openSheets);
    see(u"filtered"_s);
    key('f', {Key::control});
    key(Key::escape);
    const auto manage = [this] {
        press(u"Filtres favoris"_s);
        rest();
        key(Key::up);
        key(Key::enter);
    };
    openSheet(manage, u"favorites-manage"_s);
    openSheet([this] { key(Key::del); }, u"delete-favorite"_s);
    closeSheet();
    closeSheet();
}

void EveryScreen::visitReferences()
{
    struct List {
        QString title;
        QString add;
        QString scene;
    };
    for (const auto& [title, add, scene] : {
             List{u"Types de filament"_s, u"Ajouter un type"_s, u"types"_s},
             List{u"Marques"_s, u"Ajouter une marque"_s, u"brands"_s},
             List{u"Gammes"_s, u"Ajouter une gamme"_s, u"ranges"_s},
             List{u"Lieux"_s, u"Ajouter un lieu"_s, u"locations"_s},
         }) {
        command(title);
        see(scene);
        openSheet([this, add = add] { press(add); }, scene + u"-add"_s);
        closeSheet();
        focusList(u"list"_s);
        openSheet([this] { key(Key::f2); }, scene + u"-edit"_s);
        closeSheet();
        openSheet([this] { key(Key::del); }, scene + u"-delete"_s);
        closeSheet();
    }
}

void EveryScreen::visitTransfer(const QString& document)
{
    command(u"Export CSV"_s);
    see(u"csv-export"_s);
    command(u"Export / Import"_s);
    see(u"export-import"_s);
    // The panel is the desktop's or Qt's own, and goes when the question comes.
    press(u"Importer"_s);
    waitForWindows(m_openSheets + 1);
    rest();
    const auto panel = m_reader.activeWindow();
    const QList<AccessibleObject> fields
        = panel ? panel->all(u"text"_s) : QList<AccessibleObject>();
    if (fields.isEmpty()) {
        m_missing += u"import-question: no field for the file's name"_s;
    } else {
        m_reader.setText(fields.last(), document);
        key(Key::enter);
        waitUntil([this] {
            return m_desktop.screen().find(u"Effacer les données existantes ?"_s).has_value();
        });
        openSheet([] {}, u"import-question"_s);
        press(u"Importer et tout remplacer"_s);
        waitForWindows(--m_openSheets);
        see(u"imported"_s);
    }
    command(u"Stock de filaments"_s);
    visitImported();
}

void EveryScreen::visitImported()
{
    see(u"imported-list"_s);
    focusList(u"table"_s);
    openSheet([this] { key(Key::enter); }, u"imported-detail"_s);
    closeSheet();
    openSheet([this] { key(Key::del); }, u"imported-delete"_s);
    closeSheet();
    key('2', {Key::control});
    see(u"imported-cards"_s);
    key('3', {Key::control});
    see(u"imported-statistics"_s);
    key('1', {Key::control});
    press(u"Type"_s);
    rest();
    for (const xcb_keysym_t next : {Key::down, Key::down, Key::enter})
        key(next);
    see(u"imported-filtered"_s);
    press(u"Effacer"_s);
    command(u"Types de filament"_s);
    see(u"imported-types"_s);
    command(u"Stock de filaments"_s);
}

void EveryScreen::visitPrinting()
{
    openSheet([this] { key('p', {Key::control}); }, u"print"_s);
    openSheet([this] { press(u"Aperçu…"_s); }, u"print-preview"_s);
    closeSheet();
    closeSheet();
}

void EveryScreen::visitShell()
{
    openSheet([this] { key(',', {Key::control}); }, u"settings"_s);
    closeSheet();
    openSheet([this] { command(u"À propos de Reelhouse"_s); }, u"about"_s);
    closeSheet();
    openSheet([this] { key(Key::f1); }, u"keys"_s);
    closeSheet();
    openSheet([this] { key('q', {Key::control}); }, u"quit-question"_s);
    closeSheet();
}

void EveryScreen::visitEmptyStock()
{
    openSheet([this] { key(',', {Key::control}); }, u"settings-again"_s);
    openSheet([this] { press(u"Effacer la base"_s); }, u"clear-question"_s);
    press(u"Effacer"_s);
    waitForWindows(--m_openSheets);
    closeSheet();
    see(u"empty-stock"_s);
    key('2', {Key::control});
    see(u"empty-cards"_s);
    key('3', {Key::control});
    see(u"empty-statistics"_s);
    key('1', {Key::control});
    command(u"Marques"_s);
    see(u"empty-brands"_s);
    command(u"Stock de filaments"_s);
}

void EveryScreen::key(xcb_keysym_t key, const QList<xcb_keysym_t>& held)
{
    m_desktop.screen().pressKey(key, held);
}

void EveryScreen::command(const QString& title)
{
    const auto program = m_reader.read();
    std::optional<AccessibleObject> found;
    if (program) {
        program->forEach([&](const AccessibleObject& object) {
            if (object.role.endsWith(u"menu item"_s) && object.name == title)
                found = object;
        });
    }
    if (!found) {
        m_missing += u"the command "_s + title;
        return;
    }
    m_reader.press(*found);
    rest();
}

void EveryScreen::press(const QString& button)
{
    std::optional<AccessibleObject> found;
    waitUntil(
        [&] {
            const auto window = m_reader.activeWindow();
            for (const QString& role : {u"push button"_s, u"button menu"_s}) {
                if (window && !found)
                    found = window->find(role, button);
            }
            return found.has_value();
        },
        5s);
    if (found)
        m_reader.press(*found);
    else
        m_missing += u"the button "_s + button;
}

void EveryScreen::openSheet(const std::function<void()>& open, const QString& scene)
{
    open();
    if (waitForWindows(m_openSheets + 1))
        see(scene);
    else
        m_missing += scene;
    ++m_openSheets;
}

void EveryScreen::closeSheet()
{
    --m_openSheets;
    // Pressed before the keyboard came to the sheet, Escape went elsewhere.
    bool isClosed = false;
    for (int attempt = 0; attempt < 2 && !isClosed; ++attempt) {
        key(Key::escape);
        isClosed = waitForWindows(m_openSheets);
    }
    if (!isClosed)
        m_missing += u"the end of a sheet"_s;
    rest();
}

void EveryScreen::closeMenu()
{
    key(Key::escape);
    rest(); // The next key would be the menu's, too.
}

void EveryScreen::see(const QString& scene)
{
    rest();
    m_look(scene);
}

void EveryScreen::rest()
{
    m_desktop.screen().waitForRest(m_desktop.screen().area(), 200ms);
}

void EveryScreen::focusList(const QString& role)
{
    constexpr int mostControls = 30;
    for (int control = 0; control < mostControls; ++control) {
        if (hasFocus(role)) {
            key(Key::home);
            key(Key::down);
            key(Key::up);
            return rest();
        }
        key(Key::tab);
        rest();
    }
    m_missing += u"a way to the "_s + role;
}

/// Whether the focus is in a list of that role that is not the sidebar.
bool EveryScreen::hasFocus(const QString& role) const
{
    const auto window = m_reader.activeWindow();
    if (!window)
        return false;
    bool isInside = false;
    for (const AccessibleObject& list : window->all(role)) {
        list.forEach([&](const AccessibleObject& object) {
            isInside
                = isInside || (object.is(AccessibleState::Focused) && list.name != u"Écrans"_s);
        });
    }
    return isInside;
}

/// Besides the main window.
bool EveryScreen::waitForWindows(int count)
{
    return waitUntil(
        [&] {
            const QList<Screen::Window> windows = m_desktop.screen().windows();
            return std::ranges::count(windows, m_program.processId(), &Screen::Window::processId)
                == count + 1;
        },
        4s);
}

} // namespace reelhouse::tests
