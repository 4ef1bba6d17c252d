#pragma once

#include "core/Result.h"

#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include <optional>

namespace reelhouse {

/// Why a serialised value could not be read: the key that is missing or holds the wrong type.
struct FilterDecodingError {
    QString key;

    bool operator==(const FilterDecodingError&) const = default;
};

/// What the library shows, in names: it keeps its meaning when the stock changes, and can be saved.
struct FilterCriteria {
    std::optional<QString> typeName{};
    std::optional<QString> brandName{};
    std::optional<QString> rangeName{};
    std::optional<QString> locationName{};
    std::optional<qint64> spools{}; ///< A bucket, as in FilterSelection.
    std::optional<qint64> opened{};
    QString searchText;

    /// One line that names every criterion, such as "Type : PLA — Bobines : 4+"; nothing when there
    /// is none.
    std::optional<QString> summary() const;
    /// A name for a favourite made of these criteria, such as "PETG · Acme · aucune entamée":
    /// at most 60 characters as a reader counts them, never empty.
    QString suggestedName() const;

    QJsonObject toJson() const;
    /// A missing or null criterion is none; "searchText" is required.
    static Result<FilterCriteria, FilterDecodingError> fromJson(const QJsonObject& object);

    bool operator==(const FilterCriteria&) const = default;
};

size_t qHash(const FilterCriteria& criteria, size_t seed = 0);

} // namespace reelhouse
