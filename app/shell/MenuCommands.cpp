#include "app/shell/MenuCommands.h"

#include "app/library/LibraryView.h"
#include "app/library/SpoolActions.h"
#include "app/shell/ContentView.h"
#include "app/shell/MainWindow.h"
#include "app/shell/Mnemonics.h"

#include <QtGui/QActionGroup>
#include <QtWidgets/QMenu>

using namespace Qt::StringLiterals;

namespace reelhouse {

MenuCommands::MenuCommands(ContentView& content, MainWindow& window)
    : QObject(&content)
    , m_window(window)
    , m_libraryCommands(content.library().modeCommands())
{
    LibraryView& library = content.library();
    m_libraryCommands << library.printCommand() << library.searchCommand();
    addFileCommands(content, window.fileMenu());
    window.editMenu().addSeparator();
    window.editMenu().addAction(library.searchCommand());
    setMnemonics(window.editMenu(), u"      h"_s); // The others have theirs.
    addViews(content, window.viewMenu());
    library.spoolActions().addTo(window.stockMenu());
    setMnemonics(window.stockMenu(), u"farmuds"_s);
    for (QMenu* menu : {&window.fileMenu(), &window.viewMenu(), &window.stockMenu()})
        menu->menuAction()->setEnabled(true);
    connect(&content, &ContentView::screenShown, this, &MenuCommands::follow);
    follow(content.selection());
}

void MenuCommands::addFileCommands(ContentView& content, QMenu& menu)
{
    menu.addAction(
        u"Exporter…"_s, QKeySequence(Qt::CTRL | Qt::Key_E), &content, &ContentView::exportStock);
    menu.addAction(
        u"Importer…"_s, QKeySequence(Qt::CTRL | Qt::Key_I), &content, &ContentView::importStock);
    menu.addSeparator();
    menu.addAction(u"Exporter en CSV…"_s, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E), &content,
        &ContentView::exportTable);
    menu.addSeparator();
    menu.addAction(content.library().printCommand());
    setMnemonics(menu, u"emci"_s);
}

void MenuCommands::addViews(ContentView& content, QMenu& menu)
{
    LibraryView& library = content.library();
    auto* modes = new QActionGroup(this);
    for (QAction* mode : library.modeCommands()) {
        mode->setCheckable(true);
        modes->addAction(mode);
    }
    connect(&menu, &QMenu::aboutToShow, &library,
        [&library] { library.modeCommands().at(qsizetype(library.viewMode()))->setChecked(true); });
    menu.addActions(modes->actions());
    menu.addSeparator();
    addScreens(content, menu);
    setMnemonics(menu, u"lcasymgiev"_s);
}

void MenuCommands::addScreens(ContentView& content, QMenu& menu)
{
    auto* group = new QActionGroup(this);
    for (const NavItem item : allNavItems) {
        auto* action = new QAction(navItemTitle(item), group);
        action->setCheckable(true);
        connect(
            action, &QAction::triggered, &content, [&content, item] { content.showScreen(item); });
        m_screens += action;
    }
    menu.addActions(m_screens);
}

void MenuCommands::follow(NavItem shown)
{
    m_screens.at(qsizetype(shown))->setChecked(true);
    const bool isLibrary = shown == NavItem::Library;
    m_window.stockMenu().menuAction()->setEnabled(isLibrary);
    for (QAction* command : m_libraryCommands)
        command->setEnabled(isLibrary);
}

} // namespace reelhouse
