#include "app/library/CardDelegate.h"

#include "app/library/CardGrid.h"
#include "app/library/FilamentTableModel.h"
#include "app/library/FoundText.h"
#include "app/ui/ColorMath.h"
#include "app/ui/PlainToolTip.h"
#include "app/ui/RoundedPanel.h"
#include "app/ui/Swatch.h"
#include "app/ui/Symbol.h"
#include "core/model/Filament.h"

#include <QtGui/QHelpEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QToolTip>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr qreal foundOnFieldWash = 0.4;
constexpr int badgeSide = 22;
constexpr int badgeInset = 8;
constexpr int cardShadowSpread = 6;

const Filament* filamentOf(const QModelIndex& index)
{
    return static_cast<const FilamentTableModel*>(index.model())->filamentAt(index.row());
}

void paintCardShadow(QPainter& painter, const QRectF& card)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(faded(Qt::black, 0.02));
    for (int spread = cardShadowSpread; spread > 0; --spread) {
        const qreal radius = CardLayout::radius + spread;
        painter.drawRoundedRect(
            card.adjusted(-spread, -spread, spread, spread).translated(0, 2), radius, radius);
    }
}

void paintField(
    QPainter& painter, const QRect& card, const Filament& filament, const QString& foldedSearch)
{
    const QColor color = colorFromHex(filament.colorHex());
    const QRect field(card.left(), card.top(), card.width(), CardLayout::field);
    painter.save();
    painter.setClipRect(field);
    // Higher than what is seen of it, so that only its upper corners are round.
    paintColorField(painter, QRectF(field).adjusted(0, 0, 0, CardLayout::radius * 2),
        CardLayout::radius, color, currentTheme().surface);
    painter.restore();
    painter.fillRect(
        QRect(field.left(), field.bottom(), field.width(), 1), faded(QColor(0x808080), 0.35));

    const QRect nameRect = CardLayout::colorNameRect(card);
    painter.setFont(CardLayout::colorNameFont());
    const QColor ink = textOnColor(color);
    painter.setPen(ink);
    // Lighter behind a dark text, darker behind a light one: what is found stays readable.
    const QColor wash = faded(ink == Qt::white ? Qt::black : Qt::white, foundOnFieldWash);
    paintFoundText(painter, nameRect, filament.colorName(), 0, foldedSearch, {wash, ink});
}

void paintBadge(QPainter& painter, const QRect& card)
{
    const QRectF badge(
        card.right() + 1 - badgeInset - badgeSide, card.top() + badgeInset, badgeSide, badgeSide);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(badge);
    paintSymbol(painter, badge.adjusted(1, 1, -1, -1), u"checkmark.circle.fill"_s,
        currentTheme().accentButton);
}

void paintOutline(QPainter& painter, const QRectF& card, qreal distance, qreal radius)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(currentTheme().accent, 2));
    painter.drawRoundedRect(
        card.adjusted(-distance, -distance, distance, distance), radius, radius);
}

} // namespace

CardDelegate::CardDelegate(CardGrid& grid)
    : QStyledItemDelegate(&grid)
    , m_grid(grid)
{
}

void CardDelegate::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const Filament* filament = filamentOf(index);
    if (!filament)
        return;
    const Theme& theme = currentTheme();
    const QRect card = option.rect;
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const bool isHovered = option.state.testFlag(QStyle::State_MouseOver);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (isHovered)
        paintCardShadow(*painter, card);
    paintRoundedPanel(
        *painter, card, CardLayout::radius, theme.surface, isHovered ? theme.line : theme.hairline);
    paintField(*painter, card, *filament, m_grid.foldedSearch());
    painter->fillRect(CardLayout::separator(card, m_grid.counts()), theme.hairline);
    for (const CellPiece& piece : CardLayout::pieces(*filament, card, m_grid.counts()))
        RowLayout::paint(*painter, piece, m_grid.foldedSearch());
    if (isSelected) {
        paintOutline(*painter, card, 1, CardLayout::radius + 1);
        paintBadge(*painter, card);
    }
    const bool isKeyboardFocus = m_grid.window()->testAttribute(Qt::WA_KeyboardFocusChange);
    if (option.state.testFlag(QStyle::State_HasFocus) && isKeyboardFocus)
        paintOutline(*painter, card, -4, CardLayout::radius - 4);
    painter->restore();
}

bool CardDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
    const QStyleOptionViewItem& option, const QModelIndex& index)
{
    const Filament* filament = index.isValid() ? filamentOf(index) : nullptr;
    QStringList cutTexts;
    if (filament) {
        auto pieces = CardLayout::pieces(*filament, option.rect, m_grid.counts());
        pieces.push_back({CardLayout::colorNameRect(option.rect), filament->colorName(), {},
            CardLayout::colorNameFont(), &Theme::textPrimary});
        for (const CellPiece& piece : pieces) {
            if (RowLayout::isCut(piece))
                cutTexts << piece.text;
        }
    }
    QToolTip::showText(
        event->globalPos(), plainToolTip(cutTexts.join(u'\n')), view->viewport(), option.rect);
    return true;
}

} // namespace reelhouse
