#pragma once

#include <QtWidgets/QWidget>

class QLabel;
class QVBoxLayout;

namespace reelhouse {

/// Rows of a form on one rounded panel: a label at the left, its control at the right, a hairline
/// between. The label names its control for the keyboard and for assistive technology.
/// A control's contents margins are taken as room for its focus ring and reach into the row's.
class FormGroup final : public QWidget {
    Q_OBJECT

public:
    explicit FormGroup(QWidget* parent = nullptr);

    QLabel* addRow(const QString& label, QWidget* control);
    void addRow(QLabel* label, QWidget* control);
    /// With something said of the control right in front of it, such as the code of a colour.
    QLabel* addRow(const QString& label, QWidget* note, QWidget* control);
    /// A row of its own making: nothing is put in front of it. Of the room that it leaves around
    /// itself for a focus ring, `ring` pixels reach into the row's margins, except at the left.
    void addRow(QWidget* content, int ring = 0);
    /// A row for a control of several lines: the label stands at its first line.
    QLabel* addTallRow(const QString& label, QWidget* control);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* addRowOf(QLabel* label, QWidget* note, QWidget* control, Qt::Alignment labelPlace);

    QVBoxLayout* m_column;
};

} // namespace reelhouse
