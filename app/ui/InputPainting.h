#pragma once

#include <QtCore/QRect>

class QPainter;
class QStyleOption;
class QStyleOptionComboBox;
class QStyleOptionProgressBar;
class QStyleOptionSlider;
class QWidget;

/// The part of the style that draws text fields, pickers, bars and sliders.
namespace reelhouse::InputPainting {

/// Width of a scroll bar; its slider is narrower.
inline constexpr int scrollBarExtent = 12;

/// The ground and border of a text field; a field that has the focus always shows it.
void paintField(QPainter& painter, const QStyleOption& option, const QWidget* widget);
void paintComboBox(QPainter& painter, const QStyleOptionComboBox& option);
void paintComboBoxLabel(QPainter& painter, const QStyleOptionComboBox& option, const QRect& field);
void paintScrollBar(QPainter& painter, const QStyleOptionSlider& option, const QWidget* widget,
    const QRect& slider);
/// Where a scroll `area` has two bars, what lies between their ends.
void paintScrollAreaCorner(QPainter& painter, const QRect& rect, const QWidget* area);
void paintProgressBar(QPainter& painter, const QStyleOptionProgressBar& option);

/// Where the slider of a scroll bar stands: the groove is the whole bar, there are no buttons.
QRect scrollBarSlider(const QStyleOptionSlider& option);

} // namespace reelhouse::InputPainting
