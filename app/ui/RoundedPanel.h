#pragma once

#include <QtGui/QColor>

class QPainter;
class QRectF;

namespace reelhouse {

/// Fills `rect` with `fill` inside a border one pixel wide, with rounded corners; a border or a
/// fill that is not valid is left out. The border is one device pixel at 100 %, two at 200 %.
void paintRoundedPanel(QPainter& painter, const QRectF& rect, qreal radius, const QColor& fill,
    const QColor& border = {});

} // namespace reelhouse
