#pragma once

#include "core/text/Folding.h"

#include <vector>

namespace reelhouse {

/// Some characters of a text, one after the other.
struct TextSpan {
    qsizetype start;
    qsizetype length;

    bool operator==(const TextSpan&) const = default;
};

/// Where `foldedQuery`, a result of `normalizedForSearch`, is found in `text`: from left to right,
/// not overlapping, whole letters with their accents. Empty for an empty query.
std::vector<TextSpan> foundSpans(
    QStringView text, const QString& foldedQuery, FoldingRules rules = systemFoldingRules());

} // namespace reelhouse
