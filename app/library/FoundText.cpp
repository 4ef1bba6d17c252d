#include "app/library/FoundText.h"

#include "core/text/FoundSpans.h"

#include <QtGui/QPainter>
#include <QtGui/QTextLayout>

#include <algorithm>
#include <cstdlib>

namespace reelhouse {

namespace {

QList<QTextLayout::FormatRange> foundRanges(
    const QString& text, int searchedFrom, const QString& foldedSearch, const QColor& ink)
{
    if (foldedSearch.isEmpty() || searchedFrom >= text.size())
        return {};
    QTextCharFormat format;
    format.setForeground(ink);
    QList<QTextLayout::FormatRange> ranges;
    const QStringView searched = QStringView(text).mid(searchedFrom);
    for (const TextSpan& span : foundSpans(searched, foldedSearch))
        ranges << QTextLayout::FormatRange{
            searchedFrom + int(span.start), int(span.length), format};
    return ranges;
}

/// In one piece, whatever letters it is made of: where two washes met, they would show.
void paintGrounds(
    QPainter& painter, const QTextLayout& layout, QPointF corner, const QColor& ground)
{
    const QTextLine line = layout.lineAt(0);
    for (const QTextLayout::FormatRange& range : layout.formats()) {
        const int start = qRound(corner.x() + line.cursorToX(range.start));
        const int end = qRound(corner.x() + line.cursorToX(range.start + range.length));
        painter.fillRect(std::min(start, end), qRound(corner.y()), std::abs(end - start),
            qRound(line.height()), ground);
    }
}

/// `text` with spaces for its line breaks and tabs. No more of an endless one than could be seen.
QString onOneLine(const QString& text, qsizetype mostCharacters)
{
    QString line = text.size() <= mostCharacters ? text : text.left(mostCharacters) + u'…';
    for (QChar& character : line) {
        if (character.category() == QChar::Other_Control || character == QChar::LineSeparator
            || character == QChar::ParagraphSeparator)
            character = u' ';
    }
    return line;
}

/// Puts `text` on one line of `layout`.
QTextLine layOut(
    QTextLayout& layout, const QString& text, const QList<QTextLayout::FormatRange>& ranges)
{
    layout.setText(text);
    layout.setFormats(ranges);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return line;
}

} // namespace

void paintFoundText(QPainter& painter, const QRect& rect, const QString& text, int searchedFrom,
    const QString& foldedSearch, const FoundLook& look)
{
    const auto found = [&](const QString& shown) {
        return foundRanges(shown, searchedFrom, foldedSearch, look.ink);
    };
    const QString whole = onOneLine(text, std::max(1, rect.width()));
    QTextLayout layout({}, painter.font());
    QTextLine line = layOut(layout, whole, found(whole));
    if (line.naturalTextWidth() > rect.width()) {
        const QString shown = painter.fontMetrics().elidedText(whole, Qt::ElideRight, rect.width());
        line = layOut(layout, shown, found(shown));
    }
    const QPointF corner(rect.left(), rect.top() + (rect.height() - line.height()) / 2);
    paintGrounds(painter, layout, corner, look.ground);
    layout.draw(&painter, corner);
}

} // namespace reelhouse
