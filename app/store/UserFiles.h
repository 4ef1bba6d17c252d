#pragma once

#include "app/store/SystemErrors.h"
#include "core/Result.h"

#include <QtCore/QByteArray>

/// Files that the user chose. Ordinary files only: a pipe or a device of that name is refused and
/// never waited for. May be used on any thread.
namespace reelhouse::UserFiles {

/// The whole file. Refused with EFBIG before it is read when it is longer than `largest` bytes.
Result<QByteArray, SystemError> read(const QString& path, qint64 largest);

/// Writes the file in place, over what it held before. Success means that every byte is on disk;
/// after an error the file may be there in part.
std::optional<SystemError> overwrite(const QString& path, QByteArrayView bytes);

} // namespace reelhouse::UserFiles
