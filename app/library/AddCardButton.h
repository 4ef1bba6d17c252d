#pragma once

#include <QtWidgets/QPushButton>

namespace reelhouse {

/// "Ajouter un filament" in a dashed frame of the size of a card.
class AddCardButton final : public QPushButton {
    Q_OBJECT

public:
    explicit AddCardButton(QWidget* parent);

    /// With one word a line.
    QSize sizeHint() const override;

signals:
    /// The focus came here, and not by the mouse.
    void focused();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace reelhouse
