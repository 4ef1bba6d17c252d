#pragma once

#include "app/store/SystemErrors.h"

#include <QtCore/QStringList>

#include <array>

namespace reelhouse {

/// The endings that SQLite adds to a database's name for the files that belong to it.
namespace StoreCompanion {
inline constexpr QStringView index = u"-shm"; ///< Of the journal; SQLite makes a missing one anew.
inline constexpr QStringView journal = u"-wal";
inline constexpr QStringView rollbackJournal = u"-journal"; ///< Of a change that was cut short.
inline constexpr std::array all{index, journal, rollbackJournal};
} // namespace StoreCompanion

/// The paths of the companions of a store at `path`, whether they are there or not.
QStringList storeCompanions(const QString& path);

/// Whether `path` is the store or one of the files beside it, by name or through a link: nothing
/// else may be read or written there. To open and close such a file, even to read it, would give
/// up the hold that SQLite has on the store.
bool belongsToStore(const QString& path, const QString& storeFile);

/// For a name `path` at which no file lies: keeps companions that lie there all the same under
/// names that SQLite does not know. Otherwise they would be played back into the next file of that
/// name.
std::optional<SystemError> setOrphanedCompanionsAside(const QString& path);

} // namespace reelhouse
