#pragma once

#include "core/model/StoreContext.h"

struct sqlite3;

namespace reelhouse {

/// Reads every table of a store of `version` into an empty context.
std::optional<StoreError> readStore(sqlite3* database, int version, StoreContext& context);

} // namespace reelhouse
