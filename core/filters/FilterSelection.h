#pragma once

#include "core/model/EntityId.h"

#include <QtCore/QString>

#include <optional>

namespace reelhouse {

/// A bucket of this value or more stands for "4+"; below it, a bucket is that very number.
inline constexpr qint64 fourOrMoreBucket = 99;

/// What the library shows of the stock. The default value shows all of it.
struct FilterSelection {
    FilamentTypeId type{}; ///< Nothing's identity: any type, or none. So for the next three.
    BrandId brand{};
    FilamentRangeId range{};
    LocationId location{};
    std::optional<qint64> spools{}; ///< A bucket of the number of spools.
    std::optional<qint64> opened{}; ///< A bucket of the number of opened spools.
    QString searchText{}; ///< As typed.

    /// Whether anything was chosen or typed, even if it holds nothing back.
    bool isActive() const { return *this != FilterSelection(); }
    bool operator==(const FilterSelection&) const = default;
};

} // namespace reelhouse
