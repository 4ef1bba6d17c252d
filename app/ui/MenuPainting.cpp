#include "app/ui/MenuPainting.h"

#include "app/ui/ColorMath.h"
#include "app/ui/Compositing.h"
#include "app/ui/RoundedPanel.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"
#include "app/ui/Theme.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStyleOption>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse::MenuPainting {

namespace {

constexpr int entryHeight = 30;
constexpr int separatorHeight = 11;
constexpr int separatorInset = 7;
constexpr int iconLeft = 10;
constexpr int iconColumn = 18;
constexpr int menuIconSide = 16;
constexpr int textLeft = 36;
constexpr int textRight = 12;
constexpr int arrowSide = 10;
constexpr int tickSide = 14;
constexpr qreal entryRadius = 6;
constexpr qreal menuRadius = 10;

/// The entry that deletes, wherever a menu holds it, whichever letter chooses it.
bool isDelete(const QString& title, const QWidget* widget)
{
    return qobject_cast<const QMenu*>(widget) != nullptr && title.count(u'&') <= 1
        && QString(title).remove(u'&') == "Supprimer"_L1;
}

/// Letters are underlined where they are seen to belong to a way through the menu bar.
Qt::TextFlag mnemonicFlag(const QWidget* widget)
{
    const bool isInBar = widget != nullptr && qobject_cast<QMenuBar*>(widget->parentWidget());
    return isInBar ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
}

QPixmap tinted(const QPixmap& shape, const QColor& color)
{
    QPixmap result = shape;
    QPainter painter(&result);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(result.rect(), color);
    return result;
}

bool isTicked(const QStyleOptionMenuItem& option)
{
    return option.checkType != QStyleOptionMenuItem::NotCheckable && option.checked;
}

/// What stands in the icon column: the icon, else the tick of the chosen entry.
void paintIcon(QPainter& painter, const QStyleOptionMenuItem& option, const QRect& rect, bool isRed)
{
    const Theme& theme = currentTheme();
    if (isTicked(option) && option.icon.isNull()) {
        paintSymbol(
            painter, QRectF(rect).adjusted(1, 1, -1, -1), u"checkmark"_s, theme.textPrimary);
    } else if (isRed && !option.icon.isNull()) {
        const qreal ratio = painter.device()->devicePixelRatio();
        painter.drawPixmap(rect, tinted(option.icon.pixmap(rect.size(), ratio), theme.red));
    } else {
        option.icon.paint(&painter, rect);
    }
}

void paintSubmenuArrow(QPainter& painter, const QStyleOptionMenuItem& option)
{
    const QRectF slot(option.rect.right() - textRight - arrowSide,
        option.rect.center().y() - arrowSide / 2.0 + 0.5, arrowSide, arrowSide);
    const bool leftwards = option.direction == Qt::RightToLeft;
    const QRectF box
        = leftwards ? slot.translated(-slot.left() + option.rect.left() + textRight, 0) : slot;
    const qreal tip = leftwards ? box.left() + 3 : box.right() - 3;
    const qreal tail = leftwards ? box.right() - 3 : box.left() + 3;
    QPainterPath chevron(QPointF(tail, box.top() + 1));
    chevron.lineTo(tip, box.center().y());
    chevron.lineTo(tail, box.bottom() - 1);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(currentTheme().textSecondary, 1.4, Qt::SolidLine, Qt::RoundCap));
    painter.drawPath(chevron);
}

void paintSeparator(QPainter& painter, const QRect& rect)
{
    const int middle = rect.top() + rect.height() / 2;
    painter.fillRect(rect.left() + separatorInset, middle, rect.width() - 2 * separatorInset, 1,
        currentTheme().hairline);
}

} // namespace

QSize itemSize(const QStyleOptionMenuItem& option, const QSize& contents)
{
    if (option.menuItemType == QStyleOptionMenuItem::Separator)
        return {contents.width(), separatorHeight};
    int width = textLeft + contents.width() + textRight;
    if (option.text.contains(u'\t'))
        width += 2 * textRight;
    if (option.menuItemType == QStyleOptionMenuItem::SubMenu)
        width += textRight + arrowSide;
    else if (option.menuHasCheckableItems && !option.icon.isNull())
        width += textRight + tickSide;
    return {width, std::max(entryHeight, QFontMetrics(option.font).height() + 12)};
}

void paintItem(QPainter& painter, const QStyleOptionMenuItem& option, const QWidget* widget)
{
    if (option.menuItemType == QStyleOptionMenuItem::Separator) {
        paintSeparator(painter, option.rect);
        return;
    }
    const Theme& theme = currentTheme();
    const bool isEnabled = (option.state & QStyle::State_Enabled) != 0;
    const QString title = option.text.section(u'\t', 0, 0);
    const bool isRed = isDelete(title, widget);
    const auto placed = [&option](const QRect& rect) {
        return QStyle::visualRect(option.direction, option.rect, rect);
    };

    painter.save();
    const bool isInPicker = qobject_cast<const QComboBox*>(widget) != nullptr;
    if (isInPicker) // Its list has laid another ground and knows of no padding.
        painter.fillRect(option.rect, theme.menu);
    const bool isHighlighted = isEnabled && (option.state & QStyle::State_Selected) != 0;
    if (isHighlighted) {
        const int inset = isInPicker ? menuPadding : 0;
        paintRoundedPanel(
            painter, option.rect.adjusted(inset, 0, -inset, 0), entryRadius, theme.selection);
    }
    if (!isEnabled)
        painter.setOpacity(disabledOpacity);

    const QRect iconRect(option.rect.left() + iconLeft + (iconColumn - menuIconSide) / 2,
        option.rect.top() + (option.rect.height() - menuIconSide) / 2, menuIconSide, menuIconSide);
    paintIcon(painter, option, placed(iconRect), isRed);

    const QRect textRect = option.rect.adjusted(textLeft, 0, -textRight, 0);
    painter.setFont(option.font);
    painter.setPen(isRed ? theme.red : theme.textPrimary);
    painter.drawText(placed(textRect),
        Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | mnemonicFlag(widget), title);

    if (const QString shortcut = option.text.section(u'\t', 1); !shortcut.isEmpty()) {
        painter.setFont(fontOf(TextStyle::Caption));
        painter.setPen(isHighlighted ? theme.textSecondary : theme.textTertiary);
        painter.drawText(placed(textRect),
            QStyle::visualAlignment(option.direction, Qt::AlignRight | Qt::AlignVCenter)
                | Qt::TextSingleLine,
            shortcut);
    }
    if (isTicked(option) && !option.icon.isNull()) {
        QRectF tick(0, 0, tickSide, tickSide);
        tick.moveCenter(QPointF(
            option.rect.right() - textRight - tickSide / 2.0, QRectF(option.rect).center().y()));
        paintSymbol(painter, placed(tick.toRect()), u"checkmark"_s, theme.textPrimary);
    }
    if (option.menuItemType == QStyleOptionMenuItem::SubMenu)
        paintSubmenuArrow(painter, option);
    painter.restore();
}

void paintPanel(QPainter& painter, const QStyleOption& option, const QWidget* widget)
{
    const Theme& theme = currentTheme();
    const bool isRounded = widget != nullptr && widget->testAttribute(Qt::WA_TranslucentBackground)
        && windowsAreComposited();
    paintRoundedPanel(painter, option.rect, isRounded ? menuRadius : 0, theme.menu,
        isRounded ? theme.hairline : theme.line);
}

void paintBarItem(QPainter& painter, const QStyleOptionMenuItem& option)
{
    const Theme& theme = currentTheme();
    painter.save();
    painter.fillRect(option.rect, theme.window);
    if ((option.state & QStyle::State_Enabled) == 0)
        painter.setOpacity(disabledOpacity);
    else if ((option.state & QStyle::State_Sunken) != 0)
        paintRoundedPanel(painter, option.rect, entryRadius, theme.selectionSide);
    else if ((option.state & QStyle::State_Selected) != 0)
        paintRoundedPanel(painter, option.rect, entryRadius, blended(theme.hover, theme.window));
    painter.setPen(theme.textPrimary);
    painter.drawText(
        option.rect, Qt::AlignCenter | Qt::TextSingleLine | Qt::TextShowMnemonic, option.text);
    painter.restore();
}

} // namespace reelhouse::MenuPainting
