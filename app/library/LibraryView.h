#pragma once

#include "core/filters/FilterFavorite.h"
#include "core/filters/FilterSelection.h"

#include <QtWidgets/QWidget>

class QStackedWidget;

namespace reelhouse {

class FilterBarView;
class FilterFavoritesStore;
class ListView;
class Preferences;
class SpoolActions;
class StatusBarView;
class StoreContainer;

/// The main screen: the stock, narrowed by the filter bar, with the totals under it. It owns the
/// selection of the filters, which lives as long as the window.
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
    /// Replaces every filter by those of the favourite. A name that is gone clears its filter.
    void applyFavorite(const FilterFavorite& favorite);
    /// Applies the favourite now, or as soon as the library is shown.
    void setPendingFavorite(const FilterFavorite& favorite);

signals:
    /// The criteria may be others now.
    void criteriaChanged();
    void manageFavoritesRequested();
    void settingsRequested();
    void aboutRequested();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void listenToFilterBar();
    void seedOnce();
    void applyPendingFavoriteIfNeeded();
    void refreshWhenShown();
    void refresh();
    void setSelection(const FilterSelection& selection);
    void saveFavorite();
    void showPrintOptions();

    StoreContainer& m_container;
    Preferences& m_preferences;
    FilterFavoritesStore& m_favorites;
    FilterSelection m_selection;
    std::optional<FilterFavorite> m_pendingFavorite;
    bool m_didSeed = false;
    bool m_isStale = true;
    SpoolActions* m_actions;
    FilterBarView* m_filterBar;
    QStackedWidget* m_body;
    ListView* m_list;
    QWidget* m_emptyStock;
    QWidget* m_noResult;
    StatusBarView* m_statusBar;
};

} // namespace reelhouse
