#include "app/ui/RoundedPanel.h"

#include <QtGui/QPainter>

#include <algorithm>

namespace reelhouse {

void paintRoundedPanel(
    QPainter& painter, const QRectF& rect, qreal radius, const QColor& fill, const QColor& border)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(fill.isValid() ? QBrush(fill) : QBrush(Qt::NoBrush));
    if (border.isValid()) {
        painter.setPen(QPen(border, 1));
        const qreal rounded = std::max(radius - 0.5, 0.0);
        painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), rounded, rounded);
    } else {
        painter.setPen(Qt::NoPen);
        painter.drawRoundedRect(rect, radius, radius);
    }
    painter.restore();
}

} // namespace reelhouse
