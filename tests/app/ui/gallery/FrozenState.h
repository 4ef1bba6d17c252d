#pragma once

#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyleOption>

#include <utility>

namespace reelhouse::tests {

/// A button that always shows the given states, so that a picture can hold them all at once.
template <typename Button>
class Frozen final : public Button {
public:
    template <typename... Arguments>
    explicit Frozen(QStyle::State state, Arguments&&... arguments)
        : Button(std::forward<Arguments>(arguments)...)
        , m_state(state)
    {
    }

protected:
    void initStyleOption(QStyleOptionButton* option) const override
    {
        Button::initStyleOption(option);
        option->state |= m_state;
    }

private:
    QStyle::State m_state;
};

/// A text field that always looks as if it had the focus.
template <typename Field>
class FrozenField final : public Field {
public:
    using Field::Field;

protected:
    void initStyleOption(QStyleOptionFrame* option) const override
    {
        Field::initStyleOption(option);
        option->state |= QStyle::State_HasFocus;
    }
};

} // namespace reelhouse::tests
