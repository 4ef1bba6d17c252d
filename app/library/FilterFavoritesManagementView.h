#pragma once

#include "app/ui/Sheet.h"

#include <QtCore/QUuid>

namespace reelhouse {

class FilterFavoritesStore;

/// The sheet in which favourites are renamed, reordered and deleted.
class FilterFavoritesManagementView final : public Sheet {
    Q_OBJECT

public:
    FilterFavoritesManagementView(FilterFavoritesStore& favorites, QWidget* parent);

private:
    void refresh();
    void confirmDeletion(const QUuid& id);

    FilterFavoritesStore& m_favorites;
    QWidget* m_empty;
    QWidget* m_content;
};

} // namespace reelhouse
