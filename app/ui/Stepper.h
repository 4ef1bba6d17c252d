#pragma once

#include <QtCore/QBasicTimer>
#include <QtWidgets/QWidget>

#include <optional>

class QLabel;

namespace reelhouse {

/// Raises and lowers a 64-bit number with two buttons, the arrow keys or typed digits. The number
/// stands in its label, to be placed in front of it. The range bounds what the user can reach and
/// never the number itself: one beyond it is shown as it stands, and the first step towards the
/// range leads to its end.
class Stepper final : public QWidget {
    Q_OBJECT

public:
    /// `title` is what the label says before the number, "Nombre de bobines: ".
    explicit Stepper(const QString& title, QWidget* parent = nullptr);

    /// What the label says after the number, " dernières sauvegardes".
    void setSuffix(const QString& suffix);

    QLabel* label() const { return m_label; }
    qint64 value() const { return m_value; }
    /// Shows another number. Emits nothing.
    void setValue(qint64 value);
    qint64 minimum() const { return m_minimum; }
    qint64 maximum() const { return m_maximum; }
    /// What the user can reach from now on; the number stays what it is.
    void setRange(qint64 minimum, qint64 maximum);
    bool canStep(int steps) const { return reached(steps) != m_value; }
    /// As the user does: by so many steps, to the end of the range at most.
    void step(int steps);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    /// The user made it another number. Typed digits count once the number is complete: no further
    /// digit fits, a pause was made or another key pressed.
    void valueEdited(qint64 value);

protected:
    bool event(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    /// The two buttons, as the step that each makes.
    enum class Button : qint8 { None = 0, Minus = -1, Plus = 1 };

    qint64 reached(int steps) const;
    void edit(qint64 value);
    void typeDigit(int digit);
    void finishTyping();
    void showNumber();
    QRect body() const;
    QRect buttonRect(Button button) const;
    Button buttonAt(QPoint position) const;
    void paintButton(QPainter& painter, Button button) const;

    QString m_title;
    QString m_suffix;
    QLabel* m_label;
    qint64 m_value = 0;
    qint64 m_minimum = 0;
    qint64 m_maximum = 99;
    std::optional<qint64> m_typed; ///< Digits of a number that is not complete yet.
    QBasicTimer m_typingPause;
    QBasicTimer m_repetition; ///< While a button is held down.
    Button m_pressed = Button::None;
    Button m_hovered = Button::None;
};

} // namespace reelhouse
