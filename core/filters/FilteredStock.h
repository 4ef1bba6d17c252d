#pragma once

#include "core/filters/FilterSelection.h"

#include <vector>

namespace reelhouse {

class StoreContext;

/// The filaments that `selection` lets through, by type name, then by brand name, both in the order
/// of `compareByCodePoints`; without a type or brand first, equal ones in store order.
/// A selected entry that is no longer in the stock counts as not selected.
std::vector<FilamentId> filteredStock(StoreContext& context, const FilterSelection& selection);

} // namespace reelhouse
