#pragma once

#include "app/ui/Theme.h"

#include <QtGui/QIcon>

class QPainter;
class QRectF;

namespace reelhouse {

/// Paints the symbol `name` into `rect`, as large as fits and centred, in `color`.
/// Sharp at any scale. A name that stands for no drawing paints "cube.fill".
void paintSymbol(QPainter& painter, const QRectF& rect, const QString& name, const QColor& color);

/// The symbol `name` as an icon that asks the theme in use for the colour `role` each time it
/// paints; disabled at 45 %. Nothing is read or drawn before the icon is first shown.
QIcon symbolIcon(const QString& name, ColorRole role = &Theme::textSecondary);

/// What a screen reader says for a type's icon: "Cube". An unknown name is a cube too.
QString typeIconAccessibleName(const QString& name);

/// The application's own icon, at every size.
QIcon applicationIcon();

} // namespace reelhouse
