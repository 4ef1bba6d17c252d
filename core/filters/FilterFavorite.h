#pragma once

#include "core/filters/FilterCriteria.h"

#include <QtCore/QList>
#include <QtCore/QUuid>

namespace reelhouse {

/// A filter saved under a name.
struct FilterFavorite {
    QUuid id; ///< Never changes.
    QString name;
    FilterCriteria criteria;

    QJsonObject toJson() const;
    /// All three keys are required.
    static Result<FilterFavorite, FilterDecodingError> fromJson(const QJsonObject& object);

    bool operator==(const FilterFavorite&) const = default;
};

size_t qHash(const FilterFavorite& favorite, size_t seed = 0);

/// A list of favourites as a JSON array, in order.
QByteArray encodedFavorites(const QList<FilterFavorite>& favorites);
/// The inverse; nothing unless every element can be read.
std::optional<QList<FilterFavorite>> decodedFavorites(const QByteArray& encoded);

} // namespace reelhouse
