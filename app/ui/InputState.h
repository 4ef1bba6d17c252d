#pragma once

class QWidget;

namespace reelhouse {

enum class InputShape {
    Field, ///< Surface with a border.
    Search, ///< Sunken, fully rounded, without a border at rest.
};

/// What the style needs to know of a text field beyond its options.
struct InputState {
    InputShape shape = InputShape::Field;
    bool isRefused = false; ///< What stands in it cannot be taken: border and halo turn red.
};

void setInputState(QWidget* input, InputState state);

/// The state given to a text field; the default one for every other widget, and for none.
InputState inputState(const QWidget* input);

} // namespace reelhouse
