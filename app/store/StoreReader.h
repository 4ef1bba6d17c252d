#pragma once

#include "core/model/StoreContext.h"

struct sqlite3;

namespace reelhouse {

/// What came of reading a store.
struct StoreReading {
    std::optional<StoreError> error;
    bool hasLostReferences = false; ///< A filament refers to an entry that is not in the file.
};

/// Reads every table of a store of `version` into an empty context.
StoreReading readStore(sqlite3* database, int version, StoreContext& context);

} // namespace reelhouse
