#pragma once

#include <QtWidgets/QWidget>

namespace reelhouse {

/// Dims a window while a sheet lies over it. Fades in, unless animations are switched off.
class Scrim final : public QWidget {
    Q_OBJECT

public:
    /// Covers `window` at once and as long as it lives, whatever size it takes.
    explicit Scrim(QWidget* window);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void cover();

    qreal m_strength = 0; ///< From 0 to 1.
};

} // namespace reelhouse
