#include "app/shell/SidebarDelegate.h"

#include "app/ui/FocusRing.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"
#include "app/ui/Theme.h"

#include <QtGui/QPainter>
#include <QtWidgets/QListView>

namespace reelhouse {

namespace {

constexpr int rowHeight = 32;
constexpr int rowGap = 1;
constexpr int symbolSize = 16;
constexpr int starSize = 14;
constexpr int innerPadding = 10;
constexpr int symbolGap = 10;
constexpr qreal rowRadius = 8;
constexpr int hintTop = 1;
constexpr int hintBottom = 6;

SidebarEntry entryOf(const QModelIndex& index)
{
    return SidebarEntry(index.data(SidebarRole::entry).toInt());
}

int entryHeight()
{
    return std::max(rowHeight, QFontMetrics(fontOf(TextStyle::Body)).height() + 12) + rowGap;
}

int hintHeight(const QString& hint, int width)
{
    const QRect bounds(0, 0, width - 2 * innerPadding, QWIDGETSIZE_MAX);
    return QFontMetrics(fontOf(TextStyle::Caption))
        .boundingRect(bounds, Qt::TextWordWrap, hint)
        .height();
}

void paintHeader(QPainter* painter, const QRect& rect, const QString& title)
{
    painter->setFont(fontOf(TextStyle::Header));
    painter->setPen(currentTheme().textTertiary);
    painter->drawText(rect.adjusted(innerPadding, 8, -innerPadding, 0),
        Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, title);
}

void paintHint(QPainter* painter, const QRect& rect, const QString& title, const QString& hint)
{
    const QRect inner = rect.adjusted(innerPadding, hintTop, -innerPadding, 0);
    const QFont titleFont = fontOf(TextStyle::Callout);
    const int titleHeight = QFontMetrics(titleFont).height();
    painter->setFont(titleFont);
    painter->setPen(currentTheme().textSecondary);
    painter->drawText(QRect(inner.topLeft(), QSize(inner.width(), titleHeight)),
        Qt::AlignLeft | Qt::AlignVCenter, title);
    painter->setFont(fontOf(TextStyle::Caption));
    painter->setPen(currentTheme().textTertiary);
    painter->drawText(inner.adjusted(0, titleHeight + 4, 0, 0), Qt::TextWordWrap, hint);
}

} // namespace

void SidebarDelegate::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const Theme& theme = currentTheme();
    const QString title = index.data(Qt::DisplayRole).toString();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    switch (entryOf(index)) {
    case SidebarEntry::Header:
        paintHeader(painter, option.rect, title);
        break;
    case SidebarEntry::Hint:
        paintHint(painter, option.rect, title, index.data(SidebarRole::hint).toString());
        break;
    case SidebarEntry::Screen:
    case SidebarEntry::Favorite:
    case SidebarEntry::Command: {
        const QRect row = option.rect.adjusted(0, 0, 0, -rowGap);
        const bool isSelected = option.state.testFlag(QStyle::State_Selected);
        const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
        const bool isHovered = option.state.testFlag(QStyle::State_MouseOver) && isEnabled;
        painter->setPen(Qt::NoPen);
        if (isSelected || isHovered) {
            painter->setBrush(isSelected ? theme.selectionSide : theme.hover);
            painter->drawRoundedRect(row, rowRadius, rowRadius);
        }
        if (option.state.testFlag(QStyle::State_HasFocus)
            && option.widget->window()->testAttribute(Qt::WA_KeyboardFocusChange))
            paintFocusRing(*painter, row, rowRadius, isSelected ? theme.accentText : theme.accent);
        const bool isCommand = entryOf(index) == SidebarEntry::Command;
        const int side = entryOf(index) == SidebarEntry::Favorite ? starSize : symbolSize;
        QRect symbolRect(0, 0, side, side);
        symbolRect.moveCenter(row.center());
        symbolRect.moveLeft(row.left() + innerPadding + (symbolSize - side) / 2);
        const bool isActive = isSelected || index.data(SidebarRole::isInUse).toBool();
        paintSymbol(*painter, symbolRect, index.data(SidebarRole::symbol).toString(),
            isActive ? theme.accentText : theme.textSecondary);
        painter->setFont(fontOf(isActive ? TextStyle::Count : TextStyle::Body));
        painter->setPen(isCommand ? theme.textSecondary : theme.textPrimary);
        const QRect textRect
            = row.adjusted(innerPadding + symbolSize + symbolGap, 0, -innerPadding, 0);
        painter->drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
            painter->fontMetrics().elidedText(title, Qt::ElideRight, textRect.width()));
        break;
    }
    }
    painter->restore();
}

QSize SidebarDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const auto* view = static_cast<const QListView*>(option.widget);
    const int width = view->viewport()->width();
    switch (entryOf(index)) {
    case SidebarEntry::Header:
        return {width, entryHeight() + 4};
    case SidebarEntry::Hint:
        return {width,
            hintTop + QFontMetrics(fontOf(TextStyle::Callout)).height() + 4
                + hintHeight(index.data(SidebarRole::hint).toString(), width) + hintBottom};
    case SidebarEntry::Screen:
    case SidebarEntry::Favorite:
    case SidebarEntry::Command:
        return {width, entryHeight()};
    }
    Q_UNREACHABLE();
}

int SidebarDelegate::neededWidth(const QString& title)
{
    const int text = QFontMetrics(fontOf(TextStyle::Count)).horizontalAdvance(title);
    return 2 * innerPadding + symbolSize + symbolGap + text + 1;
}

} // namespace reelhouse
