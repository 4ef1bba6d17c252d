#include "app/ui/InputState.h"

#include <QtCore/QVariant>
#include <QtWidgets/QWidget>

namespace reelhouse {

namespace {

constexpr const char* shapeProperty = "inputShape";
constexpr const char* refusedProperty = "inputRefused";

} // namespace

void setInputState(QWidget* input, InputState state)
{
    input->setProperty(shapeProperty, static_cast<int>(state.shape));
    input->setProperty(refusedProperty, state.isRefused);
    input->update();
}

InputState inputState(const QWidget* input)
{
    InputState state;
    if (input == nullptr)
        return state;
    if (const QVariant shape = input->property(shapeProperty); shape.isValid())
        state.shape = static_cast<InputShape>(shape.toInt());
    state.isRefused = input->property(refusedProperty).toBool();
    return state;
}

} // namespace reelhouse
