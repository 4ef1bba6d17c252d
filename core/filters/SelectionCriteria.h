#pragma once

#include "core/filters/FilterCriteria.h"
#include "core/filters/FilterSelection.h"

namespace reelhouse {

class StoreContext;

/// The criteria that `selection` stands for now: the names that its references have.
FilterCriteria criteriaOf(StoreContext& context, const FilterSelection& selection);

/// The selection that `criteria` mean now: of each kind the first entry with exactly that name, or
/// none.
FilterSelection selectionOf(StoreContext& context, const FilterCriteria& criteria);

/// `selection` without the references that are no longer in the stock.
FilterSelection withoutDeleted(StoreContext& context, FilterSelection selection);

} // namespace reelhouse
