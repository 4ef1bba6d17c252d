#pragma once

#include <QtCore/QList>
#include <QtCore/QString>

#include <functional>

/// How the columns of a table share the width of a page, and how a text is cut to its column.
/// All widths are in points.
namespace reelhouse::TableFitting {

/// How wide a text is, as drawn in one font.
using TextWidth = std::function<qreal(QStringView)>;

/// What one column asks for.
struct ColumnNeed {
    qreal naturalWidth; ///< Of its widest text, the title included.
    bool isNotes = false; ///< Notes are held to a smaller share of the page.

    bool operator==(const ColumnNeed&) const = default;
};

/// The free space between two columns.
inline constexpr qreal columnGap = 8;

/// By how much the fonts of a table are made smaller so that it fits: from 0.9 to 1.
/// `needs` are measured at full size. Fewer than two columns are never made smaller.
qreal fittingScale(const QList<ColumnNeed>& needs, qreal contentWidth);

/// The width of each column: with the gaps they fill `contentWidth`, but for half a point when
/// every column is held to its share. `needs` are measured in the fonts that are drawn.
QList<qreal> columnWidths(const QList<ColumnNeed>& needs, qreal contentWidth);

/// Where each column after the first begins.
QList<qreal> tabStops(const QList<qreal>& widths);

/// `text` as it is when at most 0.75 points are missing, or when there is nothing to cut or no
/// width to cut it to; else its longest beginning that is within `width` with "…" behind it, or
/// "…" alone. What the reader sees as one character stays whole; spaces before "…" are dropped.
QString fitted(const QString& text, qreal width, const TextWidth& widthOf);

} // namespace reelhouse::TableFitting
