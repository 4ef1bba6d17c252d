#pragma once

#include "app/store/SqliteStore.h"
#include "app/store/StoreContainer.h"

namespace reelhouse::tests {

/// An empty stock over a real database in memory, for tests of the screens.
/// `kind` says what the program takes it for: the sample data is only put into a File.
inline std::unique_ptr<StoreContainer> makeMemoryStock(StoreKind kind = StoreKind::Memory)
{
    auto store = SqliteStore::openInMemory();
    auto container = StoreContainer::load(std::move(store.value()), kind, {});
    return std::move(container.value());
}

} // namespace reelhouse::tests
