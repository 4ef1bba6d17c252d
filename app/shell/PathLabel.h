#pragma once

#include <QtWidgets/QLabel>

namespace reelhouse {

/// A path on one line, cut in its middle where it does not fit; the whole of it is the tooltip and
/// what assistive technology reads.
class PathLabel final : public QLabel {
    Q_OBJECT

public:
    explicit PathLabel(const QString& path, QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace reelhouse
