#pragma once

#include <QtCore/QRectF>
#include <QtGui/QColor>

class QPainter;

namespace reelhouse {

/// Reads a colour code, in sRGB: without what is neither letter nor digit at both ends, six
/// characters are RGB and eight are ARGB, scanned as a hexadecimal number up to the first other
/// character. Never fails: any other length is opaque black.
QColor colorFromHex(const QString& text);

/// Writes a colour as "#" and six upper-case digits. Alpha is dropped; no colour is "#000000".
QString toHex(const QColor& color);

/// A spool seen from the side, filling the square `rect`: a disc whose hub hole shows the ground.
/// `ground` is what really lies under it, opaque: the ring grows stronger where the two are alike.
void paintSpool(QPainter& painter, const QRectF& rect, const QColor& color, const QColor& ground);

/// A plain disc without hub, for the small chips of a list of colours.
void paintChip(QPainter& painter, const QRectF& rect, const QColor& color, const QColor& ground);

/// A large field of colour with rounded corners. A colour with alpha lies over a checkerboard.
void paintColorField(
    QPainter& painter, const QRectF& rect, qreal radius, const QColor& color, const QColor& ground);

/// Nearly black or white, whichever stands out more from `color`.
QColor textOnColor(const QColor& color);

} // namespace reelhouse
