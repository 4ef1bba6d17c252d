#pragma once

class QAbstractButton;
class QWidget;

namespace reelhouse {

/// How a push button is drawn.
enum class ButtonLook {
    Normal, ///< Surface with a border.
    Default, ///< Filled with the accent: the one action that confirms.
    Destructive, ///< Red text on a surface.
    DestructiveFilled, ///< Filled with red: the destructive answer of an alert.
    Ghost, ///< No ground at rest.
    Link, ///< Accent text without a ground.
};

/// Gives `button` a look. The icon keeps its own colour role: `&Theme::onAccent` on a filled one.
void setButtonLook(QAbstractButton* button, ButtonLook look);

/// Makes `button` as high as the other controls in a form, and smaller than one that stands alone.
void setSmallButton(QAbstractButton* button);
bool isSmallButton(const QWidget* widget);

/// The look given to a button; `Normal` for every other widget, and for none.
ButtonLook buttonLook(const QWidget* widget);

} // namespace reelhouse
