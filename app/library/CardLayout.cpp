#include "app/library/CardLayout.h"

#include "app/library/FilamentTexts.h"
#include "app/ui/TextStyle.h"
#include "core/model/Filament.h"
#include "core/text/Plural.h"

#include <QtGui/QFontMetrics>

using namespace Qt::StringLiterals;

namespace reelhouse::CardLayout {

namespace {

constexpr int topPadding = 10;
constexpr int bottomPadding = 10;
constexpr int partGap = 7; ///< Between the product, the place and the counts.
constexpr int typeSymbol = 15;
constexpr int lineSymbol = 13;
constexpr int afterSymbol = 5;
constexpr int betweenCounts = 6;

QFont countFont()
{
    QFont font = fontOf(TextStyle::Caption);
    font.setWeight(QFont::DemiBold);
    return font;
}

QFont openedFont()
{
    QFont font = fontOf(TextStyle::Caption);
    font.setWeight(QFont::Medium);
    return font;
}

int titleHeight()
{
    return QFontMetrics(fontOf(TextStyle::CardTitle)).height() + 5;
}

int brandHeight()
{
    return QFontMetrics(fontOf(TextStyle::Callout)).height() + 2;
}

int rangeHeight()
{
    return QFontMetrics(fontOf(TextStyle::Caption)).height() + 1;
}

int lineHeight(const QFont& font)
{
    return std::max(QFontMetrics(font).height(), lineSymbol) + 3;
}

/// Of the place, and of the notes.
int noteHeight()
{
    return lineHeight(fontOf(TextStyle::Caption)) + 1;
}

int countsTop(const QRect& card, Counts counts)
{
    const int lines = counts == Counts::Beside ? 1 : 2;
    return card.bottom() + 1 - bottomPadding - lines * lineHeight(countFont());
}

/// A symbol and the text after it, over the whole width of `line`.
void addLine(std::vector<CellPiece>& pieces, const QRect& line, const QString& symbol, int side,
    ColorRole symbolColor, const QString& text, const QFont& font, ColorRole color,
    int searchedFrom = notSearched)
{
    const QRect symbolRect(line.left(), line.top() + (line.height() - side) / 2, side, side);
    pieces.push_back({symbolRect, {}, symbol, {}, symbolColor});
    pieces.push_back(
        {line.adjusted(side + afterSymbol, 0, 0, 0), text, {}, font, color, searchedFrom});
}

QString spoolsText(const Filament& filament)
{
    return counted(filament.spoolsCount(), u"bobine"_s);
}

QString openedText(const Filament& filament)
{
    return counted(filament.openedSpoolsCount(), u"entamée"_s);
}

int countWidth(const QString& text, const QFont& font)
{
    return lineSymbol + afterSymbol + QFontMetrics(font).horizontalAdvance(text) + 1;
}

void addCounts(
    std::vector<CellPiece>& pieces, const Filament& filament, const QRect& card, Counts counts)
{
    const QFont font = countFont();
    QRect line(card.left() + padding, countsTop(card, counts), card.width() - 2 * padding,
        lineHeight(font));
    addLine(pieces, line, u"spool.fill"_s, lineSymbol, &Theme::textSecondary, spoolsText(filament),
        font, &Theme::textPrimary);
    if (filament.openedSpoolsCount() < 1)
        return;
    if (counts == Counts::OneUnderTheOther) {
        line.translate(0, line.height());
    } else {
        const int left = line.right() + 1 - countWidth(openedText(filament), openedFont());
        pieces.back().rect.setRight(left - betweenCounts);
        line.setLeft(left);
    }
    addLine(pieces, line, u"spool"_s, lineSymbol, &Theme::orange, openedText(filament),
        openedFont(), &Theme::orange);
}

} // namespace

int height(Counts counts)
{
    const QRect card(0, 0, 0, 0); // Only its bottom counts.
    const int belowSeparator = card.bottom() - countsTop(card, counts) + partGap;
    return field + topPadding + titleHeight() + brandHeight() + rangeHeight() + partGap
        + 2 * noteHeight() + partGap + 1 + belowSeparator;
}

bool countsFit(const Filament& filament, int cardWidth)
{
    return countWidth(spoolsText(filament), countFont()) + betweenCounts
        + countWidth(openedText(filament), openedFont())
        <= cardWidth - 2 * padding;
}

QRect separator(const QRect& card, Counts counts)
{
    return {
        card.left() + padding, countsTop(card, counts) - partGap, card.width() - 2 * padding, 1};
}

std::vector<CellPiece> pieces(const Filament& filament, const QRect& card, Counts counts)
{
    const QFont titleFont = fontOf(TextStyle::CardTitle);
    const QFont brandFont = fontOf(TextStyle::Callout);
    const QFont captionFont = fontOf(TextStyle::Caption);
    const int left = card.left() + padding;
    const int width = card.width() - 2 * padding;
    int top = card.top() + field + topPadding;
    const auto nextLine = [&](int height) {
        const QRect line(left, top, width, height);
        top += height;
        return line;
    };

    std::vector<CellPiece> pieces;
    const ColorRole typeColor = filament.type() ? &Theme::textPrimary : &Theme::textTertiary;
    const ColorRole typeSymbolColor
        = filament.type() ? &Theme::textSecondary : &Theme::textTertiary;
    addLine(pieces, nextLine(titleHeight()), FilamentTexts::typeIconName(filament), typeSymbol,
        typeSymbolColor, FilamentTexts::typeName(filament), titleFont, typeColor,
        filament.type() ? 0 : notSearched);
    pieces.push_back({nextLine(brandHeight()), FilamentTexts::brandName(filament), {}, brandFont,
        filament.brand() ? &Theme::textPrimary : &Theme::textTertiary,
        filament.brand() ? 0 : notSearched});
    const QRect rangeLine = nextLine(rangeHeight());
    if (filament.range())
        pieces.push_back(
            {rangeLine, filament.range()->name(), {}, captionFont, &Theme::textSecondary, 0});
    top += partGap;
    addLine(pieces, nextLine(noteHeight()), u"map.fill"_s, lineSymbol, &Theme::textSecondary,
        FilamentTexts::place(filament), captionFont,
        filament.location() ? &Theme::textSecondary : &Theme::textTertiary,
        filament.location() ? 0 : notSearched);
    const QString notes = FilamentTexts::notesOnOneLine(filament);
    if (!notes.isEmpty())
        addLine(pieces, nextLine(noteHeight()), u"note.text"_s, lineSymbol, &Theme::textSecondary,
            notes, captionFont, &Theme::textSecondary, 0);
    addCounts(pieces, filament, card, counts);
    return pieces;
}

QRect colorNameRect(const QRect& card)
{
    const int nameHeight = QFontMetrics(colorNameFont()).height();
    return {card.left() + padding, card.top() + field - nameHeight - 8, card.width() - 2 * padding,
        nameHeight};
}

QFont colorNameFont()
{
    QFont font = fontOf(TextStyle::Callout);
    font.setWeight(QFont::DemiBold);
    return font;
}

} // namespace reelhouse::CardLayout
