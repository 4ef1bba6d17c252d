#include "app/library/FilamentRowDelegate.h"

#include "app/library/FilamentTableModel.h"
#include "app/library/ListView.h"
#include "app/library/RowLayout.h"
#include "app/ui/ColorMath.h"
#include "app/ui/FocusRing.h"
#include "app/ui/PlainToolTip.h"
#include "app/ui/Swatch.h"
#include "app/ui/Symbol.h"
#include "app/ui/Theme.h"
#include "core/model/Filament.h"

#include <QtGui/QHelpEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QToolTip>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr qreal rowRadius = 9;
constexpr qreal stepRadius = 8;
constexpr int stepSymbol = 15;

const FilamentTableModel& modelOf(const QModelIndex& index)
{
    return *static_cast<const FilamentTableModel*>(index.model());
}

bool isSelected(const QStyleOptionViewItem& option)
{
    return option.state.testFlag(QStyle::State_Selected);
}

} // namespace

FilamentRowDelegate::FilamentRowDelegate(ListView& list)
    : QStyledItemDelegate(&list)
    , m_list(list)
{
}

int FilamentRowDelegate::rowHeight()
{
    return RowLayout::height();
}

void FilamentRowDelegate::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const Filament* filament = modelOf(index).filamentAt(index.row());
    if (!filament)
        return;
    painter->save();
    painter->setClipRect(option.rect);
    painter->setRenderHint(QPainter::Antialiasing);
    paintGround(painter, option, index.row());
    if (index.column() == FilamentTableModel::Product) {
        const Theme& theme = currentTheme();
        QColor ground = theme.list;
        if (isSelected(option))
            ground = m_list.hasFocus() ? theme.selection : theme.track;
        else if (m_list.hoveredRow() == index.row())
            ground = blended(theme.hover, theme.list);
        paintSpool(
            *painter, RowLayout::discRect(option.rect), colorFromHex(filament->colorHex()), ground);
    }
    for (const CellPiece& piece :
        RowLayout::pieces(*filament, index.column(), option.rect, isSelected(option)))
        RowLayout::paint(*painter, piece, m_list.foldedSearch());
    if (index.column() == FilamentTableModel::Spools && hasStepButtons(option, *filament)
        && (m_list.hoveredRow() == index.row() || m_list.currentIndex().row() == index.row()))
        paintSteps(painter, option);
    painter->restore();
}

void FilamentRowDelegate::paintGround(
    QPainter* painter, const QStyleOptionViewItem& option, int row) const
{
    const Theme& theme = currentTheme();
    const int end = m_list.rowsEnd();
    constexpr int lineStart = RowLayout::textStart - 2;
    painter->fillRect(lineStart, option.rect.bottom(),
        end + RowLayout::margin - RowLayout::firstPadding - lineStart, 1, theme.hairline);

    const QRectF rowRect(
        RowLayout::margin, option.rect.top(), end - RowLayout::margin, option.rect.height());
    painter->setPen(Qt::NoPen);
    if (isSelected(option)) {
        painter->setBrush(m_list.hasFocus() ? theme.selection : theme.track);
        painter->drawRoundedRect(rowRect, rowRadius, rowRadius);
    } else if (m_list.hoveredRow() == row) {
        painter->setBrush(blended(theme.hover, theme.list));
        painter->drawRoundedRect(rowRect, rowRadius, rowRadius);
    }
    const bool isKeyboardFocus = option.state.testFlag(QStyle::State_KeyboardFocusChange)
        || m_list.window()->testAttribute(Qt::WA_KeyboardFocusChange);
    if (m_list.hasFocus() && m_list.currentIndex().row() == row && isKeyboardFocus)
        paintFocusRing(*painter, rowRect, rowRadius, theme);
}

bool FilamentRowDelegate::hasStepButtons(
    const QStyleOptionViewItem& option, const Filament& filament) const
{
    const auto pieces = RowLayout::pieces(filament, FilamentTableModel::Spools, option.rect, false);
    return pieces.back().rect.right() + 8 <= RowLayout::minusRect(option.rect).left();
}

void FilamentRowDelegate::paintSteps(QPainter* painter, const QStyleOptionViewItem& option) const
{
    const Theme& theme = currentTheme();
    const std::pair<QRect, QString> buttons[]
        = {{RowLayout::minusRect(option.rect), u"minus.circle"_s},
            {RowLayout::plusRect(option.rect), u"plus.circle"_s}};
    for (const auto& [rect, symbol] : buttons) {
        const bool isUnderPointer = rect.contains(m_list.pointerPosition());
        if (isUnderPointer) {
            painter->setPen(Qt::NoPen);
            painter->setBrush(theme.sunken);
            painter->drawRoundedRect(rect, stepRadius, stepRadius);
        }
        QRect symbolRect(0, 0, stepSymbol, stepSymbol);
        symbolRect.moveCenter(rect.center());
        paintSymbol(
            *painter, symbolRect, symbol, isUnderPointer ? theme.textPrimary : theme.textSecondary);
    }
}

FilamentRowDelegate::StepButton FilamentRowDelegate::stepButtonAt(
    const QStyleOptionViewItem& option, const QModelIndex& index, QPoint position) const
{
    if (index.column() != FilamentTableModel::Spools)
        return StepButton::None;
    const Filament* filament = modelOf(index).filamentAt(index.row());
    if (!filament || !hasStepButtons(option, *filament))
        return StepButton::None;
    if (RowLayout::minusRect(option.rect).contains(position))
        return StepButton::Minus;
    return RowLayout::plusRect(option.rect).contains(position) ? StepButton::Plus
                                                               : StepButton::None;
}

bool FilamentRowDelegate::editorEvent(QEvent* event, QAbstractItemModel*,
    const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (event->type() != QEvent::MouseButtonPress && event->type() != QEvent::MouseButtonRelease
        && event->type() != QEvent::MouseButtonDblClick)
        return false;
    const auto* mouse = static_cast<QMouseEvent*>(event);
    const StepButton button = stepButtonAt(option, index, mouse->position().toPoint());
    if (mouse->button() != Qt::LeftButton || button == StepButton::None)
        return false;
    // Each press counts, as on a stepper; the second of two quick ones arrives as a double-click.
    if (event->type() != QEvent::MouseButtonRelease) {
        if (button == StepButton::Plus)
            emit addSpoolRequested(index);
        else
            emit removeSpoolRequested(index);
    }
    return true;
}

bool FilamentRowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
    const QStyleOptionViewItem& option, const QModelIndex& index)
{
    const Filament* filament = index.isValid() ? modelOf(index).filamentAt(index.row()) : nullptr;
    QStringList cutTexts;
    if (filament) {
        for (const CellPiece& piece :
            RowLayout::pieces(*filament, index.column(), option.rect, isSelected(option))) {
            if (RowLayout::isCut(piece))
                cutTexts << piece.text;
        }
    }
    QToolTip::showText(
        event->globalPos(), plainToolTip(cutTexts.join(u'\n')), view->viewport(), option.rect);
    return true;
}

} // namespace reelhouse
