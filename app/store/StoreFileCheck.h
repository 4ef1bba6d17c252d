#pragma once

#include "core/model/PersistentStore.h"

namespace reelhouse {

/// Why what lies at `path` cannot be this program's store, as far as can be told without SQLite,
/// which would wait for a pipe, create an empty file or take a foreign one for its own.
/// Reads at most the file's first hundred bytes and writes nothing.
std::optional<StoreError> checkStoreFile(const QString& path);

/// Why a database with this application id and `user_version` cannot be this program's store.
std::optional<StoreError> checkStoreIdentity(int applicationId, int version);

} // namespace reelhouse
