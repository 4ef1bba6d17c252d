#pragma once

#include <QtCore/QSize>

class QPainter;
class QStyleOption;
class QStyleOptionButton;
class QWidget;

/// The part of the style that draws buttons and boxes.
namespace reelhouse::ButtonPainting {

/// Width and height of a tick box or a radio mark.
inline constexpr int indicatorSize = 18;

QSize pushButtonSize(const QStyleOptionButton& option, const QWidget* widget);
void paintPushButton(QPainter& painter, const QStyleOptionButton& option, const QWidget* widget);
void paintToolButtonPanel(QPainter& painter, const QStyleOption& option);
void paintCheckIndicator(QPainter& painter, const QStyleOption& option);
void paintRadioIndicator(QPainter& painter, const QStyleOption& option);

} // namespace reelhouse::ButtonPainting
