#pragma once

#include <QtGui/QColor>

namespace reelhouse {

/// What a control that cannot be used is painted with.
inline constexpr qreal disabledOpacity = 0.45;

/// `over` laid over the opaque `ground`, as painting would.
QColor blended(const QColor& over, const QColor& ground);

/// `color` with its opacity multiplied by `factor`, from 0 to 1.
QColor faded(QColor color, qreal factor);

/// The contrast of two opaque colours as accessibility guidelines define it, from 1 to 21.
qreal contrastRatio(const QColor& one, const QColor& other);

} // namespace reelhouse
