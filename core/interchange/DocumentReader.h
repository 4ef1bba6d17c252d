#pragma once

#include "core/Result.h"
#include "core/interchange/ExportData.h"

namespace reelhouse {

/// Why bytes are no document.
struct ExportDecodingError {
    enum class Kind : quint8 {
        NotJson, ///< Not JSON as it is defined, or nested deeper than any document needs.
        NumberTooLarge, ///< A number that no program of this kind can hold.
        TooLarge, ///< More bytes or memory than this machine has.
        DuplicateKey,
        NotAnObject,
        NotAnArray,
        Missing, ///< A required key is not there, or null.
        NotAText,
        NotAnInteger,
        OutOfRange, ///< An integer beyond 64 bits.
        NotADate,
    };

    Kind kind;
    /// Where: "filaments[3].notes", empty for the whole document; "ligne 3" for NotJson and
    /// NumberTooLarge.
    QString place;

    /// The French sentence shown to the user.
    QString description() const;
    bool operator==(const ExportDecodingError&) const = default;
};

/// Reads a document of which every byte must be right. Keys that it does not know are passed over;
/// one byte-order mark at the beginning is. Not validated yet.
/// Takes the bytes over, so that they need not be copied; may run on any thread.
Result<ExportData, ExportDecodingError> decodeDocument(QByteArray bytes);

} // namespace reelhouse
