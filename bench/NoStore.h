#pragma once

#include "core/model/StoreContext.h"

namespace reelhouse::bench {

/// Keeps nothing, for what is measured in memory.
class NoStore final : public PersistentStore {
public:
    std::optional<StoreError> load(StoreContext& /*context*/) override { return std::nullopt; }
    std::optional<StoreError> commit(const StockChanges& /*changes*/) override
    {
        return std::nullopt;
    }
};

} // namespace reelhouse::bench
