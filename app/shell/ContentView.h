#pragma once

#include "app/shell/NavItem.h"

#include <QtWidgets/QSplitter>

class QStackedWidget;

namespace reelhouse {

struct FilterFavorite;
class FilterFavoritesStore;
class LibraryView;
class Preferences;
class SidebarView;
class StoreContainer;

/// The main content of the window: the sidebar and, beside it, the chosen screen. The library lives
/// as long as the content; every other screen is made anew when it is chosen.
class ContentView final : public QSplitter {
    Q_OBJECT

public:
    ContentView(StoreContainer& container, Preferences& preferences,
        FilterFavoritesStore& favorites, QWidget* parent = nullptr);

    /// Writes the launch backup when the user wants one, once; to be called before the content is
    /// first shown, which is when the sample data comes into an empty stock. A failure is passed
    /// over.
    void performStartupBackupIfNeeded();
    void showScreen(NavItem item);
    NavItem selection() const { return m_selection; }
    /// Opens the sheet of the favourites over `front`, the content or a sheet of it.
    void manageFavorites(QWidget* front);

    LibraryView& library() const { return *m_library; }
    /// These show the screen and press its button: each asks for a file first.
    void exportStock();
    void importStock();
    void exportTable();

signals:
    void screenShown(NavItem item);
    void settingsRequested();
    void aboutRequested();

protected:
    /// Accepts one dropped document and begins its import.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    QWidget* makeScreen(NavItem item);
    /// Shows the screen and returns it.
    template <typename Screen>
    Screen& shown(NavItem item);
    void showFavorites();
    void applyFavorite(const FilterFavorite& favorite);

    StoreContainer& m_container;
    Preferences& m_preferences;
    FilterFavoritesStore& m_favorites;
    bool m_didBackup = false;
    NavItem m_selection = NavItem::Library;
    SidebarView* m_sidebar;
    QStackedWidget* m_screens;
    LibraryView* m_library;
};

} // namespace reelhouse
