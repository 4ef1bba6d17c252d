#pragma once

#include <SQLiteCpp/Database.h>

namespace reelhouse::StoreSchema {

/// "SPLW", at its place in the header of every store file.
inline constexpr int applicationId = 0x53504c57;
/// Version 1 knew neither `openedSpoolsCount` nor `colorName`.
inline constexpr int oldestVersion = 1;
inline constexpr int currentVersion = 2;

/// Makes the tables of the current version in an empty database and marks it as ours.
/// Throws SQLite::Exception, as do all functions here; within the caller's transaction.
void create(SQLite::Database& database);

/// Raises the tables from `version` to the current one; writes the version even when nothing else
/// is to be done. Within the caller's transaction.
void raise(SQLite::Database& database, int version);

/// Makes filaments refer to nothing where they refer to an entry that is not there: its number may
/// be given to the next new entry.
void dropLostReferences(SQLite::Database& database);

} // namespace reelhouse::StoreSchema
