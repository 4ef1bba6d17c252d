#pragma once

#include "app/store/SystemErrors.h"

/// File operations that have reached the disk when they return.
namespace reelhouse::DurableFiles {

/// Whether anything has this name: a file, a folder, a link that leads nowhere.
bool isTaken(const QString& path);

/// Copies the bytes of the regular file `from` to `to`, which is overwritten. The copy is an
/// ordinary file of the user's; `from` is only read. After an error nothing is left at `to`.
std::optional<SystemError> copy(const QString& from, const QString& to);

/// Gives `from` the name `to` in the same folder, replacing what had it.
std::optional<SystemError> rename(const QString& from, const QString& to);

/// Deletes the file if it exists.
std::optional<SystemError> remove(const QString& path);

} // namespace reelhouse::DurableFiles
