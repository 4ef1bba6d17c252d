#include "app/shell/MenuCommands.h"

#include "app/library/LibraryView.h"
#include "app/library/SpoolActions.h"
#include "app/shell/ContentView.h"
#include "app/shell/MainWindow.h"

#include <QtGui/QActionGroup>
#include <QtWidgets/QMenu>

namespace reelhouse {

MenuCommands::MenuCommands(ContentView& content, MainWindow& window)
    : QObject(&content)
    , m_window(window)
{
    addLibraryCommands(content, window);
    addScreens(content, window);
    for (QMenu* menu : {&window.fileMenu(), &window.viewMenu(), &window.stockMenu()})
        menu->menuAction()->setVisible(true);
    connect(&content, &ContentView::screenShown, this, &MenuCommands::follow);
    follow(content.selection());
}

void MenuCommands::addLibraryCommands(ContentView& content, MainWindow& window)
{
    LibraryView& library = content.library();
    m_libraryCommands = library.modeCommands();
    m_libraryCommands << library.printCommand() << library.searchCommand();
    library.spoolActions().addTo(window.stockMenu());
    window.fileMenu().addAction(library.printCommand());
    window.editMenu().addSeparator();
    window.editMenu().addAction(library.searchCommand());
    window.viewMenu().addActions(library.modeCommands());
    window.viewMenu().addSeparator();
}

void MenuCommands::addScreens(ContentView& content, MainWindow& window)
{
    auto* group = new QActionGroup(this);
    for (const NavItem item : allNavItems) {
        auto* action = new QAction(navItemTitle(item), group);
        action->setCheckable(true);
        connect(
            action, &QAction::triggered, &content, [&content, item] { content.showScreen(item); });
        m_screens += action;
    }
    window.viewMenu().addActions(m_screens);
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
