#pragma once

#include "app/backup/BackupError.h"
#include "core/Result.h"

#include <QtCore/QDateTime>

#include <optional>

namespace reelhouse {

class StoreContainer;

/// Writes the whole stock as documents into the folder "Backups" beside the store file, and keeps
/// the newest of them. Stateless: every call looks at the folder afresh.
namespace BackupService {

/// Where the backups of `store` lie. The folder is made by the first backup.
QString backupFolder(const StoreContainer& store);

/// Writes one backup and deletes none. The file is named after `now` to the millisecond, in local
/// time; while the name is taken, after the next millisecond. Returns its path, or nothing when the
/// stock is the temporary one in memory, which is never backed up.
/// Errors: EncodingFailed, WriteFailed; neither leaves a file.
Result<std::optional<QString>, BackupError> writeBackup(
    StoreContainer& store, const QDateTime& now = QDateTime::currentDateTime());

/// Writes one backup, then deletes the oldest others so that at most `keep` (at least 1) remain;
/// none is deleted when the writing fails.
Result<std::optional<QString>, BackupError> performBackup(
    StoreContainer& store, int keep, const QDateTime& now = QDateTime::currentDateTime());

/// Deletes the oldest backups until at most `keep` remain; `spared` is kept whatever its age. A
/// backup is a file or a symbolic link whose name ends in ".json", in lower case; of a link only
/// itself is deleted. Its age is that of its birth where the file system knows it, else of its last
/// change; one without is the oldest. Never fails: what cannot be listed or deleted is passed over.
void pruneBackups(const StoreContainer& store, int keep, const QString& spared = {});

/// How many backups there are; 0 when the folder is not there or cannot be read.
int storedBackupCount(const StoreContainer& store);

} // namespace BackupService

} // namespace reelhouse
