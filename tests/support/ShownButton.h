#pragma once

#include <QtWidgets/QPushButton>

namespace reelhouse::tests {

/// The button that the user sees under this text or name, if any.
inline QPushButton* shownButton(const QWidget& parent, const QString& name)
{
    for (QPushButton* button : parent.findChildren<QPushButton*>()) {
        if (button->isVisible() && (button->text() == name || button->accessibleName() == name))
            return button;
    }
    return nullptr;
}

} // namespace reelhouse::tests
