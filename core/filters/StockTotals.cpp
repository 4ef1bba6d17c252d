#include "core/filters/StockTotals.h"

#include "core/model/StoreContext.h"

#include <limits>

namespace reelhouse {

namespace {

void addUpTo64Bits(qint64& sum, qint64 count)
{
    using Limits = std::numeric_limits<qint64>;
    if (__builtin_add_overflow(sum, count, &sum))
        sum = count < 0 ? Limits::min() : Limits::max();
}

} // namespace

StockTotals stockTotals(StoreContext& context)
{
    StockTotals totals;
    for (const auto& filament : context.fetchAll<Filament>()) {
        ++totals.filaments;
        addUpTo64Bits(totals.spools, filament->spoolsCount());
        addUpTo64Bits(totals.opened, filament->openedSpoolsCount());
    }
    totals.types = std::ranges::count_if(context.fetchAll<FilamentType>(),
        [](const std::unique_ptr<FilamentType>& type) { return type->filamentCount() > 0; });
    return totals;
}

} // namespace reelhouse
