#include "app/printing/TableFitting.h"

#include <QtCore/QTextBoundaryFinder>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace reelhouse::TableFitting {

namespace {

constexpr qreal smallestTable = 40;
constexpr qreal largestShare = 0.45;
constexpr qreal largestNotesShare = 0.3;
constexpr qreal smallestScale = 0.9;
constexpr qreal worthSharing = 0.5;
constexpr qreal keptWholeTolerance = 0.75;
constexpr qsizetype firstHeadLength = 64;

/// What the columns have between them, without the gaps.
qreal availableWidth(qsizetype columns, qreal contentWidth)
{
    return std::max(contentWidth - qreal(columns - 1) * columnGap, smallestTable);
}

QList<qreal> cappedWidths(const QList<ColumnNeed>& needs, qreal available)
{
    QList<qreal> widths;
    for (const ColumnNeed& need : needs) {
        const qreal share = need.isNotes ? largestNotesShare : largestShare;
        widths << std::min(need.naturalWidth, available * share);
    }
    return widths;
}

qreal sumOf(const QList<qreal>& widths)
{
    return std::accumulate(widths.cbegin(), widths.cend(), qreal(0));
}

/// Gives each column that lacks width an equal part of `spare`, in passes: what a column does not
/// need goes to the others in the next one.
void shareOut(QList<qreal>& widths, QList<qreal> shortfalls, qreal spare)
{
    QList<qsizetype> inNeed;
    for (qsizetype column = 0; column < widths.size(); ++column) {
        if (shortfalls[column] > worthSharing)
            inNeed << column;
    }
    while (!inNeed.isEmpty() && spare > worthSharing) {
        const qreal share = spare / qreal(inNeed.size());
        for (const qsizetype column : std::as_const(inNeed)) {
            const qreal given = std::min(share, shortfalls[column]);
            widths[column] += given;
            shortfalls[column] -= given;
            spare -= given;
        }
        inNeed.removeIf([&](qsizetype column) { return shortfalls[column] <= worthSharing; });
    }
    if (spare > worthSharing)
        widths.last() += spare;
}

/// Where `text` may be cut, from nothing of it on, in order; never behind its end.
QList<qsizetype> possibleCuts(const QString& text)
{
    QList<qsizetype> cuts;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    for (qsizetype cut = 0; cut >= 0 && cut < text.size(); cut = finder.toNextBoundary())
        cuts << cut;
    return cuts;
}

} // namespace

qreal fittingScale(const QList<ColumnNeed>& needs, qreal contentWidth)
{
    if (needs.size() < 2)
        return 1;
    const qreal available = availableWidth(needs.size(), contentWidth);
    const qreal sum = sumOf(cappedWidths(needs, available));
    return sum <= available ? 1 : std::max(available / sum, smallestScale);
}

QList<qreal> columnWidths(const QList<ColumnNeed>& needs, qreal contentWidth)
{
    if (needs.isEmpty())
        return {};
    const qreal available = availableWidth(needs.size(), contentWidth);
    QList<qreal> widths = cappedWidths(needs, available);
    const qreal sum = sumOf(widths);
    if (sum >= available) {
        for (qreal& width : widths)
            width *= available / sum;
        return widths;
    }

    const qreal spare = available - sum;
    QList<qreal> shortfalls;
    for (qsizetype column = 0; column < needs.size(); ++column)
        shortfalls << needs[column].naturalWidth - widths[column];
    const qreal shortfall = sumOf(shortfalls);
    if (shortfall > spare) {
        shareOut(widths, std::move(shortfalls), spare);
        return widths;
    }
    for (qsizetype column = 0; column < needs.size(); ++column)
        widths[column] = needs[column].naturalWidth;
    widths.last() += spare - shortfall;
    return widths;
}

QList<qreal> tabStops(const QList<qreal>& widths)
{
    QList<qreal> stops;
    qreal stop = 0;
    for (qsizetype column = 0; column + 1 < widths.size(); ++column) {
        stop += widths[column] + columnGap;
        stops << stop;
    }
    return stops;
}

QString fitted(const QString& text, qreal width, const TextWidth& widthOf)
{
    if (text.isEmpty() || width <= 0)
        return text;

    // A text that is far too long is not measured whole: its head says enough.
    const qreal keptWhole = width + keptWholeTolerance;
    qsizetype length = firstHeadLength;
    while (length < text.size() && widthOf(QStringView(text).left(length)) <= keptWhole)
        length *= 2;
    if (length >= text.size() && widthOf(text) <= keptWhole)
        return text;

    const QString head = text.left(length);
    const QList<qsizetype> cuts = possibleCuts(head);
    const auto fits = [&](qsizetype cut) { return widthOf(head.left(cut) + u'…') <= width; };
    const auto cut = std::partition_point(cuts.cbegin(), cuts.cend(), fits);
    QString kept = cut == cuts.cbegin() ? QString() : head.left(*(cut - 1));
    while (!kept.isEmpty() && kept.back().isSpace())
        kept.chop(1);
    return kept + u'…';
}

} // namespace reelhouse::TableFitting
