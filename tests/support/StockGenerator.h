#pragma once

#include "core/model/StoreContext.h"

namespace reelhouse::tests {

/// Inserts a made-up workshop into an empty context: types, brands, ranges and places, then
/// `filaments` filaments that use them. The same arguments always give the same stock. Some
/// references are absent, many notes are empty, a few are long, and there are accents everywhere.
/// Nothing is saved.
void generateStock(StoreContext& context, int filaments, quint32 seed = 1);

} // namespace reelhouse::tests
