#pragma once

#include "core/filters/FilterFavorite.h"

class QWidget;

/// What the screens of the favourites share.
namespace reelhouse::FavoriteTexts {

/// The criteria in one line; "Tous les filaments" when there is none.
QString summary(const FilterCriteria& criteria);
/// What is said of a name that another favourite has.
QString nameTaken();
/// A star and `title`, at the top of a sheet.
QWidget* makeHeader(const QString& title, QWidget* parent);

} // namespace reelhouse::FavoriteTexts
