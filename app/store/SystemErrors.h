#pragma once

#include "core/model/PersistentStore.h"

namespace reelhouse {

/// A French sentence, then what else is known about it, as in
/// "La base de données est endommagée (id 7)." Without a detail the sentence stands alone.
QString sentenceWithDetail(const QString& sentence, const QString& detail);

/// Why the operating system refused something.
struct SystemError {
    int code; ///< An errno value.

    /// A French sentence; the system's own words are only behind one that cannot say more.
    QString description() const;
    bool operator==(const SystemError&) const = default;
};

/// What the last failed system call of this thread left in errno.
SystemError lastSystemError();

/// Puts an SQLite result code, plain or extended, into French. `detail` is SQLite's own message; it
/// is told where the French sentence does not say all.
StoreError describeSqliteError(int resultCode, const QString& detail);

} // namespace reelhouse
