#include "app/ui/ViewPainting.h"

#include "app/ui/Compositing.h"
#include "app/ui/RoundedPanel.h"
#include "app/ui/TextStyle.h"
#include "app/ui/Theme.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>
#include <QtWidgets/QWidget>

#include <algorithm>

namespace reelhouse::ViewPainting {

namespace {

constexpr int headerHeight = 30;
constexpr int headerPadding = 8;
constexpr int headerFirstIndent = 10;

} // namespace

void paintItem(QPainter& painter, const QStyleOption& option)
{
    const Theme& theme = currentTheme();
    if ((option.state & QStyle::State_Selected) != 0) {
        const bool isActive = (option.state & QStyle::State_Active) != 0
            && (option.state & QStyle::State_HasFocus) != 0;
        paintRoundedPanel(
            painter, option.rect, itemRadius, isActive ? theme.selection : theme.track);
    } else if ((option.state & QStyle::State_MouseOver) != 0
        && (option.state & QStyle::State_Enabled) != 0) {
        paintRoundedPanel(painter, option.rect, itemRadius, theme.hover);
    }
}

void paintHeaderGround(QPainter& painter, const QRect& rect)
{
    const Theme& theme = currentTheme();
    painter.fillRect(rect, theme.list);
    painter.fillRect(rect.left(), rect.bottom(), rect.width(), 1, theme.hairline);
}

void paintHeaderLabel(QPainter& painter, const QStyleOptionHeader& option)
{
    const bool isFirst = option.position == QStyleOptionHeader::Beginning
        || option.position == QStyleOptionHeader::OnlyOneSection;
    const int indent = headerPadding + (isFirst ? headerFirstIndent : 0);
    const QRect label = QStyle::visualRect(
        option.direction, option.rect, option.rect.adjusted(indent, 0, -headerPadding, -1));
    painter.save();
    painter.setFont(fontOf(TextStyle::Header));
    painter.setPen(currentTheme().textSecondary);
    painter.drawText(label,
        QStyle::visualAlignment(option.direction, option.textAlignment) | Qt::TextSingleLine,
        painter.fontMetrics().elidedText(option.text, Qt::ElideRight, label.width()));
    painter.restore();
}

void paintToolTip(QPainter& painter, const QStyleOption& option, const QWidget* widget)
{
    const Theme& theme = currentTheme();
    const bool isRounded = widget != nullptr && widget->testAttribute(Qt::WA_TranslucentBackground)
        && windowsAreComposited();
    paintRoundedPanel(painter, option.rect, isRounded ? itemRadius : 0, theme.menu, theme.line);
}

QSize headerSize(const QStyleOptionHeader& option)
{
    const QFontMetrics metrics(fontOf(TextStyle::Header));
    return {metrics.horizontalAdvance(option.text) + 2 * headerPadding + headerFirstIndent,
        std::max(headerHeight, metrics.height() + 12)};
}

} // namespace reelhouse::ViewPainting
