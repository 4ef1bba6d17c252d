#pragma once

#include "app/ui/CapsuleMenu.h"
#include "core/filters/FilterFavorite.h"

namespace reelhouse {

class FilterFavoritesStore;

/// The menu under the star of the filter bar: saves the current filter, applies a favourite, opens
/// their management. Its entries are made each time it opens.
class FavoritesMenu final : public CapsuleMenu {
    Q_OBJECT

public:
    FavoritesMenu(const FilterFavoritesStore& favorites, CapsuleButton* star);

    /// What the library shows now, and whether that holds anything back.
    void setCurrent(const FilterCriteria& criteria, bool isFilterActive);

signals:
    void saveRequested();
    void favoriteChosen(const FilterFavorite& favorite);
    /// The favourite is to take the current criteria.
    void updateRequested(const FilterFavorite& favorite);
    void manageRequested();

private:
    void fill();
    void addFavorites();

    const FilterFavoritesStore& m_favorites;
    FilterCriteria m_criteria;
    bool m_isFilterActive = false;
};

} // namespace reelhouse
