#pragma once

#include <QtWidgets/QWidget>

class QLayout;
class QVBoxLayout;

namespace reelhouse {

/// Rows of options on one rounded panel, a hairline between.
class OptionPanel final : public QWidget {
    Q_OBJECT

public:
    explicit OptionPanel(QWidget* parent);

    void addRow(QLayout* row, const QMargins& margins);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* m_rows;
};

} // namespace reelhouse
