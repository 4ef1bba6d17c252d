#pragma once

#include "app/ui/Sheet.h"
#include "core/filters/FilterCriteria.h"

class QLabel;
class QLineEdit;

namespace reelhouse {

class FilterFavoritesStore;

/// Asks under which name a filter is to be saved, and saves it.
class FilterFavoriteSaveView final : public Sheet {
    Q_OBJECT

public:
    FilterFavoriteSaveView(
        FilterFavoritesStore& favorites, const FilterCriteria& criteria, QWidget* parent);

private:
    void save();
    void showError(const QString& message);

    FilterFavoritesStore& m_favorites;
    FilterCriteria m_criteria;
    QLineEdit* m_name;
    QLabel* m_error;
};

} // namespace reelhouse
