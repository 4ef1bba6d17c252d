#pragma once

#include <QtCore/QRect>

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

/// Space around a box and its label, for the focus ring.
inline constexpr int boxInset = 4;
enum class BoxKind { Check, Radio };

/// A whole check box or radio button: mark, label, and the focus ring around both.
void paintBox(QPainter& painter, const QStyleOptionButton& option, const QRect& mark,
    const QRect& label, BoxKind kind);

} // namespace reelhouse::ButtonPainting
