#pragma once

#include "core/model/StoreContext.h"

#include <algorithm>

namespace reelhouse {

/// Every filament by dateAdded, the latest first; those of one moment in store order.
/// The pointers hold until the stock is changed.
inline std::vector<const Filament*> newestFirst(StoreContext& context)
{
    std::vector<std::pair<qint64, const Filament*>> dated;
    dated.reserve(size_t(context.count<Filament>()));
    for (const auto& filament : context.fetchAll<Filament>())
        dated.emplace_back(filament->dateAdded().toMSecsSinceEpoch(), filament.get());
    std::ranges::stable_sort(
        dated, std::ranges::greater(), &std::pair<qint64, const Filament*>::first);
    std::vector<const Filament*> filaments;
    filaments.reserve(dated.size());
    for (const auto& [date, filament] : dated)
        filaments.push_back(filament);
    return filaments;
}

} // namespace reelhouse
