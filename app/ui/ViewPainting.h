#pragma once

#include <QtCore/QSize>

class QPainter;
class QRect;
class QStyleOption;
class QStyleOptionHeader;
class QWidget;

/// The part of the style that draws the entries and headers of lists and tables, and tool tips.
namespace reelhouse::ViewPainting {

inline constexpr int itemRadius = 6;

/// The ground of an entry: one rounded rectangle, in the track's colour without focus.
void paintItem(QPainter& painter, const QStyleOption& option);
void paintHeaderGround(QPainter& painter, const QRect& rect);
/// The first header stands further in, above the text of rows that are rounded rectangles.
void paintHeaderLabel(QPainter& painter, const QStyleOptionHeader& option);
QSize headerSize(const QStyleOptionHeader& option);
void paintToolTip(QPainter& painter, const QStyleOption& option, const QWidget* widget);

} // namespace reelhouse::ViewPainting
