#pragma once

#include "app/shell/NavItem.h"

#include <QtWidgets/QSplitter>

class QStackedWidget;

namespace reelhouse {

class LibraryView;
class Preferences;
class SidebarView;
class StoreContainer;

/// The main content of the window: the sidebar and, beside it, the chosen screen. The library lives
/// as long as the content; every other screen is made anew when it is chosen.
class ContentView final : public QSplitter {
    Q_OBJECT

public:
    ContentView(StoreContainer& container, Preferences& preferences, QWidget* parent = nullptr);

    void showScreen(NavItem item);
    NavItem selection() const { return m_selection; }

private:
    QWidget* makeScreen(NavItem item);

    StoreContainer& m_container;
    NavItem m_selection = NavItem::Library;
    SidebarView* m_sidebar;
    QStackedWidget* m_screens;
    LibraryView* m_library;
};

} // namespace reelhouse
