#include "app/ui/RoundedPanel.h"

#include <QtGui/QPainter>

#include <algorithm>

namespace reelhouse {

namespace {

void paintSquarePanel(
    QPainter& painter, const QRectF& rect, const QColor& fill, const QColor& border)
{
    if (fill.isValid())
        painter.fillRect(rect, fill);
    if (!border.isValid())
        return;
    painter.fillRect(QRectF(rect.left(), rect.top(), rect.width(), 1), border);
    painter.fillRect(QRectF(rect.left(), rect.bottom() - 1, rect.width(), 1), border);
    painter.fillRect(QRectF(rect.left(), rect.top(), 1, rect.height()), border);
    painter.fillRect(QRectF(rect.right() - 1, rect.top(), 1, rect.height()), border);
}

} // namespace

void paintRoundedPanel(
    QPainter& painter, const QRectF& rect, qreal radius, const QColor& fill, const QColor& border)
{
    if (radius <= 0) {
        paintSquarePanel(painter, rect, fill, border);
        return;
    }
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
