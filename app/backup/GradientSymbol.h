#pragma once

#include <QtWidgets/QWidget>

namespace reelhouse {

/// The large symbol of an export screen, filled with the theme's gradient from its upper left to
/// its lower right. Decoration: what it says stands in the title below it.
class GradientSymbol final : public QWidget {
    Q_OBJECT

public:
    GradientSymbol(QString symbol, int side, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_symbol;
};

} // namespace reelhouse
