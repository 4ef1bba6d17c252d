#pragma once

#include "app/library/RowLayout.h"

namespace reelhouse {

/// Where everything in one card goes; the pieces are those of the list's cells.
namespace CardLayout {

constexpr int field = 86; ///< The height of the field of colour at the top.
constexpr qreal radius = 12;
constexpr int padding = 12;

/// How the counts of spools and of opened spools stand; one way for the whole grid.
enum class Counts : quint8 { Beside, OneUnderTheOther };

int height(Counts counts);
/// Whether the two counts of `filament` fit side by side into a card so wide.
bool countsFit(const Filament& filament, int cardWidth);
/// The hairline above the counts.
QRect separator(const QRect& card, Counts counts);
/// The texts and symbols below the field, from top to bottom.
std::vector<CellPiece> pieces(const Filament& filament, const QRect& card, Counts counts);
/// Where the name of the colour stands on the field.
QRect colorNameRect(const QRect& card);
QFont colorNameFont();

} // namespace CardLayout

} // namespace reelhouse
