#include "app/ui/ButtonPainting.h"

#include "app/ui/ButtonLook.h"
#include "app/ui/ColorMath.h"
#include "app/ui/FocusRing.h"
#include "app/ui/RoundedPanel.h"
#include "app/ui/Symbol.h"
#include "app/ui/Theme.h"

#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleOption>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse::ButtonPainting {

namespace {

constexpr int padding = 14;
constexpr int linkPadding = 8;
constexpr int iconGap = 8;
constexpr int controlHeight = 32;
constexpr int smallHeight = 28;
constexpr int linkHeight = 30; // As a capsule: it comes and goes beside them.
constexpr qreal radius = 8;
constexpr qreal boxRadius = 5;
constexpr qreal pressedDarkening = 0.14;

bool isFilled(ButtonLook look)
{
    return look == ButtonLook::Default || look == ButtonLook::DestructiveFilled;
}

QFont labelFont(const QWidget* widget)
{
    QFont font = widget == nullptr ? QApplication::font() : widget->font();
    font.setWeight(isFilled(buttonLook(widget)) ? QFont::DemiBold : QFont::Medium);
    return font;
}

QColor textColor(ButtonLook look, const Theme& theme)
{
    switch (look) {
    case ButtonLook::Normal:
    case ButtonLook::Ghost:
        return theme.textPrimary;
    case ButtonLook::Default:
    case ButtonLook::DestructiveFilled:
        return theme.onAccent;
    case ButtonLook::Destructive:
        return theme.red;
    case ButtonLook::Link:
        return theme.accentText;
    }
    Q_UNREACHABLE();
}

QColor darkened(const QColor& color, qreal share)
{
    return blended(faded(Qt::black, share), color);
}

QColor filledGround(const QColor& rest, const QColor& hovered, QStyle::State state)
{
    if ((state & QStyle::State_Enabled) == 0)
        return rest;
    if ((state & QStyle::State_Sunken) != 0)
        return darkened(rest, pressedDarkening);
    return (state & QStyle::State_MouseOver) != 0 ? hovered : rest;
}

/// The ground of a button that is not filled: what it has at rest, washed or sunken.
QColor plainGround(const QColor& rest, QStyle::State state, const Theme& theme)
{
    if ((state & QStyle::State_Enabled) == 0)
        return rest;
    if ((state & (QStyle::State_Sunken | QStyle::State_On)) != 0)
        return theme.sunken;
    if ((state & QStyle::State_MouseOver) == 0)
        return rest;
    return rest.isValid() ? blended(theme.hover, rest) : theme.hover;
}

void paintGround(
    QPainter& painter, const QRectF& rect, qreal rounded, ButtonLook look, QStyle::State state)
{
    const Theme& theme = currentTheme();
    switch (look) {
    case ButtonLook::Normal:
    case ButtonLook::Destructive:
        paintRoundedPanel(
            painter, rect, rounded, plainGround(theme.surface, state, theme), theme.line);
        return;
    case ButtonLook::Default:
        paintRoundedPanel(painter, rect, rounded,
            filledGround(theme.accentButton, theme.accentButtonHover, state));
        return;
    case ButtonLook::DestructiveFilled:
        paintRoundedPanel(painter, rect, rounded,
            filledGround(theme.redFill, darkened(theme.redFill, pressedDarkening / 2), state));
        return;
    case ButtonLook::Ghost:
    case ButtonLook::Link:
        if (const QColor ground = plainGround({}, state, theme); ground.isValid())
            paintRoundedPanel(painter, rect, rounded, ground);
        return;
    }
}

} // namespace

QSize pushButtonSize(const QStyleOptionButton& option, const QWidget* widget)
{
    const QFontMetrics metrics(labelFont(widget));
    const bool isLink = buttonLook(widget) == ButtonLook::Link;
    const int least = isLink ? linkHeight : isSmallButton(widget) ? smallHeight : controlHeight;
    const int height = std::max(least, metrics.height() + 12);
    if (option.text.isEmpty())
        return {height, height};

    const int side = isLink ? linkPadding : padding;
    int width = metrics.size(Qt::TextShowMnemonic, option.text).width() + 2 * side;
    if (!option.icon.isNull())
        width += option.iconSize.width() + iconGap;
    return {width, height};
}

void paintPushButton(QPainter& painter, const QStyleOptionButton& option, const QWidget* widget)
{
    const Theme& theme = currentTheme();
    const ButtonLook look = buttonLook(widget);
    painter.save();
    if ((option.state & QStyle::State_Enabled) == 0)
        painter.setOpacity(disabledOpacity);

    QRectF body = option.rect;
    qreal rounded = radius;
    if (showsFocusRing(option)) {
        paintFocusRing(painter, body, radius, theme);
        body.adjust(focusRingInset, focusRingInset, -focusRingInset, -focusRingInset);
        rounded -= focusRingInset;
    }
    paintGround(painter, body, rounded, look, option.state);

    const QFont font = labelFont(widget);
    const int textWidth = QFontMetrics(font).size(Qt::TextShowMnemonic, option.text).width();
    int contentWidth = textWidth;
    if (!option.icon.isNull())
        contentWidth += option.iconSize.width() + (option.text.isEmpty() ? 0 : iconGap);
    QRect content(0, 0, contentWidth, option.rect.height());
    content.moveCenter(option.rect.center());
    if (!option.icon.isNull()) {
        const QRect iconRect(content.left(),
            option.rect.top() + (option.rect.height() - option.iconSize.height()) / 2,
            option.iconSize.width(), option.iconSize.height());
        option.icon.paint(&painter, QStyle::visualRect(option.direction, option.rect, iconRect));
        content.setLeft(content.left() + option.iconSize.width() + iconGap);
    }
    if (!option.text.isEmpty()) {
        painter.setFont(font);
        painter.setPen(textColor(look, theme));
        painter.drawText(QStyle::visualRect(option.direction, option.rect, content),
            Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextHideMnemonic,
            option.text);
    }
    painter.restore();
}

void paintToolButtonPanel(QPainter& painter, const QStyleOption& option)
{
    paintGround(painter, option.rect, radius, ButtonLook::Ghost, option.state);
    if (showsFocusRing(option))
        paintFocusRing(painter, option.rect, radius, currentTheme());
}

void paintCheckIndicator(QPainter& painter, const QStyleOption& option)
{
    const Theme& theme = currentTheme();
    const QRectF box = option.rect;
    painter.save();
    if ((option.state & QStyle::State_Enabled) == 0)
        painter.setOpacity(disabledOpacity);
    if ((option.state & QStyle::State_On) != 0) {
        paintRoundedPanel(painter, box, boxRadius,
            filledGround(theme.accentButton, theme.accentButtonHover, option.state));
        paintSymbol(painter, box.adjusted(3, 3, -3, -3), u"checkmark"_s, theme.onAccent);
    } else {
        paintRoundedPanel(painter, box, boxRadius, plainGround(theme.surface, option.state, theme),
            theme.control);
        if ((option.state & QStyle::State_NoChange) != 0) {
            const QRectF dash(box.left() + 4, box.center().y() - 1, box.width() - 8, 2);
            painter.fillRect(dash, theme.textSecondary);
        }
    }
    painter.restore();
}

void paintRadioIndicator(QPainter& painter, const QStyleOption& option)
{
    const Theme& theme = currentTheme();
    const QRectF mark = option.rect;
    const qreal rounded = mark.width() / 2;
    painter.save();
    if ((option.state & QStyle::State_Enabled) == 0)
        painter.setOpacity(disabledOpacity);
    if ((option.state & QStyle::State_On) != 0) {
        paintRoundedPanel(painter, mark, rounded,
            filledGround(theme.accentButton, theme.accentButtonHover, option.state));
        paintRoundedPanel(painter, mark.adjusted(6, 6, -6, -6), rounded - 6, theme.onAccent);
    } else {
        paintRoundedPanel(
            painter, mark, rounded, plainGround(theme.surface, option.state, theme), theme.control);
    }
    painter.restore();
}

void paintBox(QPainter& painter, const QStyleOptionButton& option, const QRect& mark,
    const QRect& label, BoxKind kind)
{
    const Theme& theme = currentTheme();
    QStyleOptionButton markOption = option;
    markOption.rect = mark;
    if (kind == BoxKind::Radio)
        paintRadioIndicator(painter, markOption);
    else
        paintCheckIndicator(painter, markOption);

    painter.save();
    if ((option.state & QStyle::State_Enabled) == 0)
        painter.setOpacity(disabledOpacity);
    painter.setPen(theme.textPrimary);
    painter.drawText(label,
        QStyle::visualAlignment(option.direction, Qt::AlignLeft | Qt::AlignVCenter)
            | Qt::TextSingleLine | Qt::TextHideMnemonic,
        option.text);
    painter.restore();
    if (showsFocusRing(option))
        paintFocusRing(painter, option.rect, radius, theme);
}

} // namespace reelhouse::ButtonPainting
