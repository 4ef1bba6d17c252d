#pragma once

#include <QtCore/QString>

namespace reelhouse {

/// Why no backup was written.
struct BackupError {
    enum class Kind : quint8 { WriteFailed, EncodingFailed };

    Kind kind;
    QString message = {}; ///< What the system said, in French; empty for EncodingFailed.

    /// The French sentence shown to the user.
    QString description() const;
    bool operator==(const BackupError&) const = default;
};

} // namespace reelhouse
