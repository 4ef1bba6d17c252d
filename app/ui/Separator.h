#pragma once

#include <QtWidgets/QWidget>

namespace reelhouse {

/// A hairline across its parent, one pixel high.
class Separator final : public QWidget {
    Q_OBJECT

public:
    explicit Separator(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace reelhouse
