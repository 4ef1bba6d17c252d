#pragma once

#include "app/store/SystemErrors.h"
#include "core/Result.h"

#include <QtCore/QByteArrayView>

#include <functional>

/// File operations that have reached the disk when they return.
namespace reelhouse::DurableFiles {

/// Whether anything has this name: a file, a folder, a link that leads nowhere. True as well when
/// the system cannot say.
bool isTaken(const QString& path);

/// Copies the bytes of the regular file `from` to `to`, which is overwritten. The copy is an
/// ordinary file of the user's; `from` is only read. After an error nothing is left at `to`.
std::optional<SystemError> copy(const QString& from, const QString& to);

/// Writes a file into `folder`, whole or not at all, under the first name of nameOf(0), nameOf(1),
/// … that nothing has, and returns its path. Until every byte has reached the disk the file has a
/// name of its own there, always the same, so a crash leaves one at most; the folder is written
/// into by one caller at a time.
Result<QString, SystemError> write(
    const QString& folder, const std::function<QString(int attempt)>& nameOf, QByteArrayView bytes);

/// Makes the folder and those above it, unless they exist.
std::optional<SystemError> makeFolder(const QString& path);

/// Gives `from` the name `to` in the same folder; an error (EEXIST) when something has that name.
std::optional<SystemError> renameToFreeName(const QString& from, const QString& to);

/// Deletes the file if it exists.
std::optional<SystemError> remove(const QString& path);

} // namespace reelhouse::DurableFiles
