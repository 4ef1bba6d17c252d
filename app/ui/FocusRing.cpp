#include "app/ui/FocusRing.h"

#include "app/ui/Theme.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QStyleOption>
#include <QtWidgets/QWidget>

#include <algorithm>

namespace reelhouse {

namespace {

constexpr qreal ringWidth = 2;

} // namespace

bool showsFocusRing(const QStyleOption& option)
{
    constexpr QStyle::State wanted
        = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange | QStyle::State_Enabled;
    return (option.state & wanted) == wanted;
}

void paintFocusRing(QPainter& painter, const QRectF& rect, qreal radius, const Theme& theme)
{
    paintFocusRing(painter, rect, radius, theme.accent);
}

void paintFocusRing(QPainter& painter, const QRectF& rect, qreal radius, const QColor& color)
{
    constexpr qreal half = ringWidth / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, ringWidth));
    painter.setBrush(Qt::NoBrush);
    const qreal rounded = std::max(radius - half, 0.0);
    painter.drawRoundedRect(rect.adjusted(half, half, -half, -half), rounded, rounded);
    painter.restore();
}

FocusRingWatch::FocusRingWatch(QObject* parent)
    : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool FocusRingWatch::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress && watched->isWidgetType())
        static_cast<QWidget*>(watched)->window()->setAttribute(Qt::WA_KeyboardFocusChange, false);
    return QObject::eventFilter(watched, event);
}

} // namespace reelhouse
