#pragma once

#include "core/filters/FilterSelection.h"

#include <vector>

namespace reelhouse {

class StoreContext;

/// The filaments that share a type, a brand or a location, by its name.
struct StockGroup {
    QString name; ///< "Sans type", "Sans marque" or "Sans lieu" for those without one.
    qint64 count = 0; ///< Filaments, never 0.
    QString icon{}; ///< The symbol of the first type of that name; empty for brands and locations.
    FilterSelection selection{}; ///< What shows the group; not active for those without.

    bool operator==(const StockGroup&) const = default;
};

/// How the whole stock divides, the largest groups first, equal ones as a file browser orders their
/// names. Entries of one name make one group.
struct StockDistribution {
    std::vector<StockGroup> byType;
    std::vector<StockGroup> byBrand;
    std::vector<StockGroup> byLocation;
};

StockDistribution stockDistribution(StoreContext& context);

} // namespace reelhouse
