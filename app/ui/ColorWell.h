#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QPushButton>

class QColorDialog;

namespace reelhouse {

/// Shows a colour and, when pressed, has another one chosen in a window beside it. Each colour that
/// the user tries is reported at once; opening and closing that window reports nothing.
class ColorWell final : public QPushButton {
    Q_OBJECT

public:
    explicit ColorWell(QWidget* parent = nullptr);

    const QColor& color() const { return m_color; }
    /// Shows another colour. Emits nothing.
    void setColor(const QColor& color);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    /// The user picked; the colour may be translucent.
    void colorEdited(const QColor& color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void openDialog();

    QColor m_color = Qt::black;
    QPointer<QColorDialog> m_dialog;
};

} // namespace reelhouse
