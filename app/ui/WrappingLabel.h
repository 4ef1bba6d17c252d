#pragma once

#include <QtWidgets/QLabel>

namespace reelhouse {

/// Plain text over as many lines as its width asks for. A word that is wider than the label is
/// parted as well, where a usual label would grow and be cut off.
class WrappingLabel final : public QLabel {
    Q_OBJECT

public:
    explicit WrappingLabel(const QString& text, QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace reelhouse
