#pragma once

#include "core/model/PersistentStore.h"

namespace reelhouse {

/// A French sentence, then what the system said about it, as in
/// "Le disque est plein (No space left on device)." Without a detail the sentence stands alone.
QString sentenceWithDetail(const QString& sentence, const QString& detail);

/// Why the operating system refused something.
struct SystemError {
    int code; ///< An errno value.

    /// The system's own words.
    QString detail() const;
    /// The French sentence with the system's own words behind it.
    QString description() const;
    bool operator==(const SystemError&) const = default;
};

/// What the last failed system call of this thread left in errno.
SystemError lastSystemError();

/// Puts an SQLite result code, plain or extended, into French. `detail` is SQLite's own message.
StoreError describeSqliteError(int resultCode, const QString& detail);

} // namespace reelhouse
