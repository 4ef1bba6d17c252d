#include "app/ui/InputPainting.h"

#include "app/ui/ColorMath.h"
#include "app/ui/FocusRing.h"
#include "app/ui/InputState.h"
#include "app/ui/RoundedPanel.h"
#include "app/ui/Symbol.h"
#include "app/ui/Theme.h"

#include <QtGui/QPainter>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse::InputPainting {

namespace {

constexpr qreal fieldRadius = 8;
constexpr qreal haloWidth = 2;
constexpr qreal haloOpacity = 0.28;
constexpr int sliderMinimum = 32;
constexpr qreal sliderThickness = 6;
constexpr qreal barThickness = 8;
constexpr int chevronSide = 12;

/// A scroll bar stands beside the viewport of its area and takes that one's ground.
QColor groundBeside(const QWidget* scrollBar)
{
    const QWidget* ancestor = scrollBar; // Or the area itself.
    while (ancestor != nullptr) {
        if (const auto* area = qobject_cast<const QAbstractScrollArea*>(ancestor)) {
            const QWidget* viewport = area->viewport();
            return viewport->palette().color(viewport->backgroundRole());
        }
        ancestor = ancestor->parentWidget();
    }
    return currentTheme().canvas;
}

} // namespace

void paintField(QPainter& painter, const QStyleOption& option, const QWidget* widget)
{
    const Theme& theme = currentTheme();
    const InputState input = inputState(widget);
    const QRectF rect = option.rect;
    const bool hasFocus = (option.state & QStyle::State_HasFocus) != 0;
    const bool isSearch = input.shape == InputShape::Search;
    const qreal radius = isSearch ? rect.height() / 2 : fieldRadius;

    painter.save();
    if ((option.state & QStyle::State_Enabled) == 0)
        painter.setOpacity(disabledOpacity);
    if (!hasFocus) {
        const QColor border = input.isRefused ? theme.red : isSearch ? QColor() : theme.control;
        paintRoundedPanel(painter, rect, radius, isSearch ? theme.sunken : theme.surface, border);
    } else {
        const QColor color = input.isRefused ? theme.red : theme.accent;
        paintRoundedPanel(painter, rect, radius, theme.surface, color);
        const qreal inset = 1 + haloWidth / 2;
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(faded(color, haloOpacity), haloWidth));
        painter.drawRoundedRect(
            rect.adjusted(inset, inset, -inset, -inset), radius - inset, radius - inset);
    }
    painter.restore();
}

void paintComboBox(QPainter& painter, const QStyleOptionComboBox& option)
{
    const Theme& theme = currentTheme();
    QRectF body = option.rect;
    qreal radius = fieldRadius;
    painter.save();
    const bool isEnabled = (option.state & QStyle::State_Enabled) != 0;
    if (!isEnabled)
        painter.setOpacity(disabledOpacity);
    if (showsFocusRing(option)) {
        paintFocusRing(painter, body, radius, theme);
        body.adjust(focusRingInset, focusRingInset, -focusRingInset, -focusRingInset);
        radius -= focusRingInset;
    }
    const bool isHovered = isEnabled && (option.state & QStyle::State_MouseOver) != 0;
    const bool isOpen = (option.state & QStyle::State_On) != 0;
    const QColor rest = option.frame ? theme.surface : QColor();
    const QColor washed = option.frame ? blended(theme.hover, rest) : theme.hover;
    const QColor ground = isOpen ? theme.sunken : isHovered ? washed : rest;
    paintRoundedPanel(painter, body, radius, ground, option.frame ? theme.line : QColor());

    const QRect chevron(option.rect.right() - chevronSide - 8,
        option.rect.top() + (option.rect.height() - chevronSide) / 2, chevronSide, chevronSide);
    paintSymbol(painter, QStyle::visualRect(option.direction, option.rect, chevron),
        u"chevron.expand"_s, theme.textSecondary);
    painter.restore();
}

void paintComboBoxLabel(QPainter& painter, const QStyleOptionComboBox& option, const QRect& field)
{
    if (option.editable)
        return; // Its field shows the text.
    const Theme& theme = currentTheme();
    QRect rect = field;
    painter.save();
    if ((option.state & QStyle::State_Enabled) == 0)
        painter.setOpacity(disabledOpacity);
    if (!option.currentIcon.isNull()) {
        const QRect icon(rect.left(), rect.top() + (rect.height() - option.iconSize.height()) / 2,
            option.iconSize.width(), option.iconSize.height());
        option.currentIcon.paint(&painter, QStyle::visualRect(option.direction, field, icon));
        rect.setLeft(icon.right() + 8);
    }
    painter.setPen(theme.textPrimary);
    painter.drawText(QStyle::visualRect(option.direction, field, rect),
        Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
        painter.fontMetrics().elidedText(option.currentText, Qt::ElideRight, rect.width()));
    painter.restore();
}

QRect scrollBarSlider(const QStyleOptionSlider& option)
{
    const bool isHorizontal = option.orientation == Qt::Horizontal;
    const int length = isHorizontal ? option.rect.width() : option.rect.height();
    const qint64 range = qint64(option.maximum) - option.minimum;
    if (range <= 0)
        return option.rect;
    const auto share
        = static_cast<int>(length * qint64(option.pageStep) / (range + option.pageStep));
    const int extent = std::min(std::max(share, sliderMinimum), length);
    const int start = QStyle::sliderPositionFromValue(
        option.minimum, option.maximum, option.sliderPosition, length - extent, option.upsideDown);
    return isHorizontal
        ? QRect(option.rect.left() + start, option.rect.top(), extent, option.rect.height())
        : QRect(option.rect.left(), option.rect.top() + start, option.rect.width(), extent);
}

void paintScrollBar(
    QPainter& painter, const QStyleOptionSlider& option, const QWidget* widget, const QRect& slider)
{
    const Theme& theme = currentTheme();
    painter.fillRect(option.rect, groundBeside(widget));
    if (option.minimum == option.maximum)
        return;
    const bool isHorizontal = option.orientation == Qt::Horizontal;
    const int extent = isHorizontal ? slider.height() : slider.width();
    const qreal side = (extent - sliderThickness) / 2;
    const QRectF bar = isHorizontal ? QRectF(slider).adjusted(3, side, -3, -side)
                                    : QRectF(slider).adjusted(side, 3, -side, -3);
    const bool isActive = (option.activeSubControls & QStyle::SC_ScrollBarSlider) != 0
        && (option.state & (QStyle::State_MouseOver | QStyle::State_Sunken)) != 0;
    paintRoundedPanel(
        painter, bar, sliderThickness / 2, isActive ? theme.textTertiary : theme.scroller);
}

void paintScrollAreaCorner(QPainter& painter, const QRect& rect, const QWidget* area)
{
    painter.fillRect(rect, groundBeside(area));
}

void paintProgressBar(QPainter& painter, const QStyleOptionProgressBar& option)
{
    const Theme& theme = currentTheme();
    QRectF track = option.rect;
    track.setTop(track.center().y() - barThickness / 2);
    track.setHeight(barThickness);
    paintRoundedPanel(painter, track, barThickness / 2, theme.track);
    const qint64 range = qint64(option.maximum) - option.minimum;
    if (range <= 0)
        return;
    QRectF filled = track;
    filled.setWidth(
        track.width() * static_cast<qreal>(qint64(option.progress) - option.minimum) / range);
    painter.save();
    painter.setClipRect(filled, Qt::IntersectClip);
    paintRoundedPanel(painter, track, barThickness / 2, theme.accent);
    painter.restore();
}

} // namespace reelhouse::InputPainting
