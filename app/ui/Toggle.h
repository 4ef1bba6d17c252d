#pragma once

#include <QtCore/QVariantAnimation>
#include <QtWidgets/QCheckBox>

namespace reelhouse {

/// A check box drawn as a switch, without a text of its own: the label of its row names it.
class Toggle final : public QCheckBox {
    Q_OBJECT

public:
    explicit Toggle(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
    void paintEvent(QPaintEvent* event) override;

private:
    void moveKnob(bool isOn);

    QVariantAnimation m_knob; ///< From 0, off, to 1, on.
};

} // namespace reelhouse
