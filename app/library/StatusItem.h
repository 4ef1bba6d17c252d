#pragma once

#include <QtGui/QColor>
#include <QtWidgets/QLabel>

namespace reelhouse {

/// One total of the status bar: a symbol in its own colour, the number and its word. It is a label
/// whose text is "28 filaments", so that assistive technology reads it and hears it change.
class StatusItem final : public QLabel {
    Q_OBJECT

public:
    StatusItem(QString symbol, const QColor& color, QWidget* parent);

    void setCount(qint64 count, const QString& noun);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_symbol;
    QColor m_color;
};

} // namespace reelhouse
