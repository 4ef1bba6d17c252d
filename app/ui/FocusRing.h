#pragma once

#include <QtCore/QRectF>

class QPainter;
class QStyleOption;

namespace reelhouse {

struct Theme;

/// Width taken by the ring and the gap inside it, on each side.
inline constexpr qreal focusRingInset = 4;

/// Whether the control has the focus and got it by the keyboard.
bool showsFocusRing(const QStyleOption& option);

/// Paints the ring along the inside of `rect`, the whole rectangle of a control whose corners are
/// rounded by `radius`. The control paints itself `focusRingInset` further in.
void paintFocusRing(QPainter& painter, const QRectF& rect, qreal radius, const Theme& theme);

} // namespace reelhouse
