#pragma once

#include <QtCore/QBasicTimer>
#include <QtWidgets/QProgressBar>

namespace reelhouse {

/// Twelve spokes that turn while something of unknown length goes on. Stands still where the
/// desktop has animations switched off.
class Spinner final : public QProgressBar {
    Q_OBJECT

public:
    explicit Spinner(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    QBasicTimer m_timer;
    int m_leadingSpoke = 0;
};

} // namespace reelhouse
