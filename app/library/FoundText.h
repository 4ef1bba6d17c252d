#pragma once

#include <QtGui/QColor>

class QPainter;
class QRect;

namespace reelhouse {

/// How the found part of a text stands out.
struct FoundLook {
    QColor ground;
    QColor ink;
};

/// Draws `text` on one line, vertically centred, cut with "…" where it does not fit. Where
/// `foldedSearch` is found in it, from the character `searchedFrom` on, it has the look of the
/// found part. Uses the font and pen of `painter`.
void paintFoundText(QPainter& painter, const QRect& rect, const QString& text, int searchedFrom,
    const QString& foldedSearch, const FoundLook& look);

} // namespace reelhouse
