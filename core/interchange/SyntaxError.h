#pragma once

#include <QtCore/QByteArrayView>

#include <optional>

namespace reelhouse {

/// Where a text stops being JSON, for a reader that only says that it is none.
struct SyntaxError {
    enum class Kind : quint8 {
        NotJson, ///< Also what is nested deeper than any document needs.
        NumberTooLarge, ///< JSON, but beyond the numbers of this and most other programs.
    };

    Kind kind;
    qsizetype line; ///< Counted from 1.

    bool operator==(const SyntaxError&) const = default;
};

/// The first error of `text`, or nothing.
std::optional<SyntaxError> findSyntaxError(QByteArrayView text);

} // namespace reelhouse
