#pragma once

#include <QtCore/qglobal.h>

namespace reelhouse {

class StoreContext;

/// What the whole stock amounts to. A sum beyond 64 bits stays at the largest integer.
struct StockTotals {
    qint64 filaments = 0;
    qint64 spools = 0;
    qint64 opened = 0;
    qint64 types = 0; ///< Those that a filament refers to.

    bool operator==(const StockTotals&) const = default;
};

StockTotals stockTotals(StoreContext& context);

} // namespace reelhouse
