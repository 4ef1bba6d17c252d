#include "app/library/RowLayout.h"

#include "app/library/FilamentTableModel.h"
#include "app/library/FilamentTexts.h"
#include "app/library/FoundText.h"
#include "app/ui/ColorMath.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"
#include "core/model/Filament.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>

using namespace Qt::StringLiterals;

namespace reelhouse::RowLayout {

namespace {

constexpr int symbolGap = 5;
constexpr int captionGap = 2; ///< Between a line and the smaller one below.
constexpr int codeGap = 3;
constexpr int spoolsLeft = cellPadding + 2;
constexpr int spoolsStart = spoolsLeft + symbol + 6; ///< Of the count, after its symbol.
constexpr int countGap = 8;
constexpr qreal foundWash = 0.25;

/// The two lines of a cell, one above the other, centred in its height.
struct TwoLines {
    QRect first;
    QRect second;
};

TwoLines twoLines(const QRect& cell, const QFont& firstFont, const QFont& secondFont, int gap)
{
    const int firstHeight = QFontMetrics(firstFont).height();
    const int secondHeight = QFontMetrics(secondFont).height();
    const int top = cell.top() + (cell.height() - firstHeight - gap - secondHeight) / 2;
    return {{cell.left(), top, cell.width(), firstHeight},
        {cell.left(), top + firstHeight + gap, cell.width(), secondHeight}};
}

QRect leftSquare(const QRect& line, int size)
{
    return {line.left(), line.top() + (line.height() - size) / 2, size, size};
}

ColorRole faint(bool isSelected)
{
    return isSelected ? &Theme::textSecondary : &Theme::textTertiary;
}

std::vector<CellPiece> productPieces(const Filament& filament, const QRect& cell, bool isSelected)
{
    const QFont nameFont = fontOf(TextStyle::Count);
    const QFont captionFont = fontOf(TextStyle::Caption);
    const auto [first, second]
        = twoLines(cell.adjusted(textStart, 0, -cellPadding, 0), nameFont, captionFont, captionGap);
    const ColorRole nameColor = filament.type() ? &Theme::textPrimary : faint(isSelected);
    const ColorRole symbolColor = filament.type() ? &Theme::textSecondary : faint(isSelected);
    const ColorRole brandColor = filament.brand() ? &Theme::textSecondary : faint(isSelected);
    const QFont typeFont = filament.type() ? nameFont : fontOf(TextStyle::Body);
    return {
        {leftSquare(first, symbol), {}, FilamentTexts::typeIconName(filament), {}, symbolColor},
        {first.adjusted(symbol + symbolGap, 0, 0, 0), FilamentTexts::typeName(filament), {},
            typeFont, nameColor, filament.type() ? 0 : notSearched},
        {second, FilamentTexts::brandAndRange(filament), {}, captionFont, brandColor,
            filament.brand() ? 0 : int(FilamentTexts::brandName(filament).size())},
    };
}

std::vector<CellPiece> spoolPieces(const Filament& filament, const QRect& cell)
{
    const QRect line = cell.adjusted(spoolsLeft, 0, -cellPadding, 0);
    const QFont countFont = fontOf(TextStyle::Count);
    const QString count = QString::number(filament.spoolsCount());
    const int countLeft = cell.left() + spoolsStart;
    const int countWidth = std::min(
        QFontMetrics(countFont).horizontalAdvance(count) + 1, line.right() + 1 - countLeft);
    std::vector<CellPiece> pieces{
        {leftSquare(line, symbol), {}, u"spool.fill"_s, {}, &Theme::textSecondary},
        {{countLeft, line.top(), countWidth, line.height()}, count, {}, countFont,
            &Theme::textPrimary},
    };
    const QString opened = FilamentTexts::openedInParentheses(filament);
    if (!opened.isEmpty()) {
        const QFont captionFont = fontOf(TextStyle::Caption);
        const int left = countLeft + countWidth + countGap;
        const int width = std::min(
            QFontMetrics(captionFont).horizontalAdvance(opened) + 1, line.right() + 1 - left);
        pieces.push_back(
            {{left, line.top(), width, line.height()}, opened, {}, captionFont, &Theme::orange});
    }
    return pieces;
}

std::vector<CellPiece> colorPieces(const Filament& filament, const QRect& cell, bool isSelected)
{
    const QFont nameFont = fontOf(TextStyle::Body);
    const QFont codeFont = fontOf(TextStyle::Code);
    const auto [first, second]
        = twoLines(cell.adjusted(cellPadding, 0, -cellPadding, 0), nameFont, codeFont, codeGap);
    const bool hasName = !filament.colorName().isEmpty();
    return {
        {first, FilamentTexts::colorName(filament), {}, nameFont,
            hasName ? &Theme::textPrimary : faint(isSelected), hasName ? 0 : notSearched},
        {second, filament.colorHex(), {}, codeFont, faint(isSelected), 0},
    };
}

} // namespace

int height()
{
    const int lines = QFontMetrics(fontOf(TextStyle::Count)).height()
        + QFontMetrics(fontOf(TextStyle::Caption)).height();
    return std::max(48, lines + 14);
}

int wholeWidth(int column)
{
    const auto widthOf = [](TextStyle style, const QString& text) {
        return QFontMetrics(fontOf(style)).horizontalAdvance(text) + 1;
    };
    switch (FilamentTableModel::Column(column)) {
    case FilamentTableModel::Spools:
        return spoolsStart + widthOf(TextStyle::Count, u"9"_s) + countGap
            + widthOf(TextStyle::Caption, u"(1 entamée)"_s) + cellPadding;
    case FilamentTableModel::Place:
        return cellPadding + widthOf(TextStyle::Body, u"Étagère M"_s) + cellPadding;
    case FilamentTableModel::Product:
    case FilamentTableModel::ColorName:
    case FilamentTableModel::Notes:
        return 0;
    }
    Q_UNREACHABLE();
}

QRect discRect(const QRect& cell)
{
    return leftSquare(cell.adjusted(firstPadding, 0, 0, 0), disc);
}

QRect plusRect(const QRect& cell)
{
    return {cell.right() + 1 - 8 - stepButton, cell.top() + (cell.height() - stepButton) / 2,
        stepButton, stepButton};
}

QRect minusRect(const QRect& cell)
{
    return plusRect(cell).translated(-stepButton, 0);
}

std::vector<CellPiece> pieces(
    const Filament& filament, int column, const QRect& cell, bool isSelected)
{
    const QRect line = cell.adjusted(cellPadding, 0, -cellPadding, 0);
    switch (FilamentTableModel::Column(column)) {
    case FilamentTableModel::Product:
        return productPieces(filament, cell, isSelected);
    case FilamentTableModel::Spools:
        return spoolPieces(filament, cell);
    case FilamentTableModel::Place:
        return {{line, FilamentTexts::place(filament), {}, fontOf(TextStyle::Body),
            filament.location() ? &Theme::textPrimary : faint(isSelected),
            filament.location() ? 0 : notSearched}};
    case FilamentTableModel::ColorName:
        return colorPieces(filament, cell, isSelected);
    case FilamentTableModel::Notes:
        return {{line.adjusted(0, 0, cellPadding - firstPadding, 0),
            FilamentTexts::notesOnOneLine(filament), {}, fontOf(TextStyle::Body),
            &Theme::textSecondary, 0}};
    }
    Q_UNREACHABLE();
}

bool isCut(const CellPiece& piece)
{
    return QFontMetrics(piece.font).horizontalAdvance(piece.text) > piece.rect.width();
}

void paint(QPainter& painter, const CellPiece& piece, const QString& foldedSearch)
{
    const QColor color = currentTheme().*piece.color;
    if (!piece.symbol.isEmpty()) {
        paintSymbol(painter, piece.rect, piece.symbol, color);
        return;
    }
    painter.setFont(piece.font);
    painter.setPen(color);
    const Theme& theme = currentTheme();
    paintFoundText(painter, piece.rect, piece.text, piece.searchedFrom, foldedSearch,
        {faded(theme.accent, foundWash), theme.textPrimary});
}

} // namespace reelhouse::RowLayout
