#pragma once

#include "app/shell/NavItem.h"

#include <QtCore/QList>
#include <QtCore/QObject>

class QAction;
class QMenu;

namespace reelhouse {

class ContentView;
class MainWindow;

/// The entries of the menu bar that need the stock: its screens, and the commands of the library,
/// which can be used while that one is shown.
class MenuCommands final : public QObject {
    Q_OBJECT

public:
    MenuCommands(ContentView& content, MainWindow& window);

private:
    void addFileCommands(ContentView& content, QMenu& menu);
    void addViews(ContentView& content, QMenu& menu);
    void addScreens(ContentView& content, QMenu& menu);
    void follow(NavItem shown);

    MainWindow& m_window;
    QList<QAction*> m_screens; ///< In the order of the screens.
    QList<QAction*> m_libraryCommands; ///< Outside the menu "Stock".
};

} // namespace reelhouse
