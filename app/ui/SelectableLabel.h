#pragma once

#include <QtWidgets/QLabel>

namespace reelhouse {

/// Plain text that wraps and can be selected and copied, by the mouse and by the keyboard: Tab
/// reaches it and selects it whole. Leaves room for the focus ring around the text, on every side.
class SelectableLabel final : public QLabel {
    Q_OBJECT

public:
    explicit SelectableLabel(QWidget* parent = nullptr);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace reelhouse
