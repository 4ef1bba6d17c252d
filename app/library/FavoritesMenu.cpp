#include "app/library/FavoritesMenu.h"

#include "app/library/FilterFavoritesStore.h"
#include "app/library/MenuTitle.h"

using namespace Qt::StringLiterals;

namespace reelhouse {

FavoritesMenu::FavoritesMenu(const FilterFavoritesStore& favorites, CapsuleButton* star)
    : CapsuleMenu(star, Alignment::Right)
    , m_favorites(favorites)
{
    setToolTipsVisible(true);
    connect(this, &QMenu::aboutToShow, this, &FavoritesMenu::fill);
}

void FavoritesMenu::setCurrent(const FilterCriteria& criteria, bool isFilterActive)
{
    m_criteria = criteria;
    m_isFilterActive = isFilterActive;
}

void FavoritesMenu::fill()
{
    clear();
    QAction* save
        = addAction(u"Enregistrer le filtre actuel…"_s, this, &FavoritesMenu::saveRequested);
    save->setEnabled(m_isFilterActive);
    if (!m_favorites.favorites().isEmpty())
        addFavorites();
    addSeparator();
    addAction(u"Gérer les favoris…"_s, this, &FavoritesMenu::manageRequested);
}

void FavoritesMenu::addFavorites()
{
    addSeparator();
    for (const FilterFavorite& favorite : m_favorites.favorites()) {
        QAction* entry = addAction(
            menuTitle(favorite.name), this, [this, favorite] { emit favoriteChosen(favorite); });
        entry->setToolTip(menuToolTip(favorite.name));
        entry->setCheckable(true);
        entry->setChecked(favorite.criteria == m_criteria);
    }
    if (const auto matching = m_favorites.matching(m_criteria)) {
        QAction* update = addAction(u"Mettre à jour « "_s + menuTitle(matching->name) + u" »"_s,
            this, [this, favorite = *matching] { emit updateRequested(favorite); });
        update->setToolTip(menuToolTip(matching->name));
    }
}

} // namespace reelhouse
