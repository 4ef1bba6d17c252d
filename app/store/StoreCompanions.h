#pragma once

#include "app/store/SystemErrors.h"

#include <QtCore/QStringList>

namespace reelhouse {

/// The endings that SQLite adds to a database's name for the files that belong to it.
QStringList storeCompanionSuffixes();

/// Whether `path` is the store or one of the files beside it, by name or through a link: nothing
/// else may be read or written there. To open and close such a file, even to read it, would give
/// up the hold that SQLite has on the store.
bool belongsToStore(const QString& path, const QString& storeFile);

/// For a name `path` at which no file lies: keeps companions that lie there all the same under
/// names that SQLite does not know. Otherwise they would be played back into the next file of that
/// name.
std::optional<SystemError> setOrphanedCompanionsAside(const QString& path);

} // namespace reelhouse
