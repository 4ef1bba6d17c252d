#pragma once

#include "app/ui/Theme.h"

#include <QtCore/QRect>
#include <QtGui/QFont>

#include <limits>
#include <vector>

class QPainter;

namespace reelhouse {

class Filament;

/// The place in a piece that comes after any text.
inline constexpr int notSearched = std::numeric_limits<int>::max();

/// One piece of text or one symbol in a cell of the list.
struct CellPiece {
    QRect rect;
    QString text; ///< Cut with "…" where it does not fit.
    QString symbol; ///< Drawn in `rect` instead of a text when it is not empty.
    QFont font;
    ColorRole color;
    int searchedFrom = notSearched; ///< Where the part of the text begins that the search reads.
};

/// Where everything in one row of the list goes. Pure geometry: what is painted and what is told in
/// a tool tip come from the same pieces.
namespace RowLayout {

constexpr int margin = 8; ///< Between the row's rectangle and the edges of the list.
constexpr int cellPadding = 6;
constexpr int firstPadding = 18;
constexpr int disc = 32;
constexpr int textStart = 64; ///< Of the first cell's text, after the disc.
constexpr int symbol = 14;
constexpr int stepButton = 28;

int height();
/// How wide a column is in which counts and usual names of places stand whole, in the font of the
/// day; 0 for the others, whose long texts are cut.
int wholeWidth(int column);
QRect discRect(const QRect& cell);
QRect minusRect(const QRect& cell);
QRect plusRect(const QRect& cell);

/// The pieces of one cell, from left to right and from top to bottom.
/// `isSelected` makes faint texts one tone stronger, to stay readable on the selection.
std::vector<CellPiece> pieces(
    const Filament& filament, int column, const QRect& cell, bool isSelected);
/// Whether a piece of text is wider than its place.
bool isCut(const CellPiece& piece);
/// Makes stand out where `foldedSearch` is found.
void paint(QPainter& painter, const CellPiece& piece, const QString& foldedSearch);

} // namespace RowLayout

} // namespace reelhouse
