#pragma once

#include "app/library/ViewMode.h"
#include "core/filters/FilterFavorite.h"
#include "core/filters/FilterSelection.h"

#include <QtWidgets/QWidget>

#include <functional>

class QAction;
class QStackedWidget;

namespace reelhouse {

class CardView;
class FilterBarView;
class FilterFavoritesStore;
class LibraryToolbar;
class ListView;
class Preferences;
class SelectedFilament;
class SpoolActions;
class StatisticsView;
class StatusBarView;
class StoreContainer;

/// The main screen: the stock as a list or as cards, narrowed by the filter bar, or in statistics,
/// with the totals under it. It owns the selection of the filters, which lives as long as the
/// window; the mode is kept in the preferences where these keep the window's state.
/// Seeds the sample data the first time it is shown, unless the store is the temporary one.
class LibraryView final : public QWidget {
    Q_OBJECT

public:
    LibraryView(StoreContainer& container, Preferences& preferences,
        FilterFavoritesStore& favorites, QWidget* parent = nullptr);

    /// What is shown now, under the names that the references have now.
    FilterCriteria currentCriteria() const;
    bool isFilterActive() const { return m_selection.isActive(); }
    void resetFilters();
    /// Replaces every filter by those of the favourite and shows the list instead of the
    /// statistics. A name that is gone clears its filter.
    void applyFavorite(const FilterFavorite& favorite);
    /// Applies the favourite now, or as soon as the library is shown.
    void setPendingFavorite(const FilterFavorite& favorite);
    ViewMode viewMode() const { return m_viewMode; }
    /// Shows the stock in another way, and remembers it where the window's state is kept.
    void setViewMode(ViewMode mode);

    /// What the menu bar offers of the library, beside its own keys and buttons.
    SpoolActions& spoolActions() const { return *m_actions; }
    QAction* searchCommand() const { return m_searchCommand; }
    QAction* printCommand() const { return m_printCommand; }
    /// In the order of the modes.
    const QList<QAction*>& modeCommands() const { return m_modeCommands; }

signals:
    /// The criteria may be others now.
    void criteriaChanged();
    void manageFavoritesRequested();
    void settingsRequested();
    void aboutRequested();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void makeEmptyStates();
    void listenToFilterBar();
    void addKeys();
    QAction* addCommand(
        const QString& text, const QKeySequence& key, const std::function<void()>& action);
    void restoreViewMode();
    void seedOnce();
    bool hasSampleFilament() const;
    void applyPendingFavoriteIfNeeded();
    void refreshWhenShown();
    /// For when the stock or the mode changed.
    void refresh();
    /// For when only the selection of the filters changed.
    void showSelection();
    void showFiltered();
    void showBody();
    /// What is selected in the list or the cards, whichever is shown; null in the statistics.
    SelectedFilament* selectedFilament() const;
    void setSelection(const FilterSelection& selection);
    void showGroup(const FilterSelection& selection);
    void focusSearch();
    void saveFavorite();
    void showPrintOptions();

    StoreContainer& m_container;
    Preferences& m_preferences;
    FilterFavoritesStore& m_favorites;
    FilterSelection m_selection;
    std::optional<FilterFavorite> m_pendingFavorite;
    ViewMode m_viewMode = ViewMode::List;
    bool m_didSeed = false;
    std::vector<FilamentId> m_sample; ///< What was seeded in this run of the program.
    bool m_isStale = true;
    bool m_hasResult = false;
    FilamentId m_selectedFilament; ///< In the mode that was left last.
    SpoolActions* m_actions;
    QAction* m_searchCommand = nullptr;
    QAction* m_printCommand = nullptr;
    QList<QAction*> m_modeCommands;
    LibraryToolbar* m_toolbar;
    FilterBarView* m_filterBar;
    QWidget* m_filterBarLine; ///< The line under it.
    QStackedWidget* m_body;
    ListView* m_list;
    CardView* m_cards;
    StatisticsView* m_statistics;
    QWidget* m_emptyStock;
    QWidget* m_noResult;
    StatusBarView* m_statusBar;
};

} // namespace reelhouse
