#include "app/ui/FocusRing.h"

#include "app/ui/Theme.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyleOption>

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
    constexpr qreal half = ringWidth / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme.accent, ringWidth));
    painter.setBrush(Qt::NoBrush);
    const qreal rounded = std::max(radius - half, 0.0);
    painter.drawRoundedRect(rect.adjusted(half, half, -half, -half), rounded, rounded);
    painter.restore();
}

} // namespace reelhouse
