#pragma once

#include "app/ui/Theme.h"

#include <QtWidgets/QLabel>

namespace reelhouse {

/// One total of the statistics: a symbol on a wash of its colour, the number and its label. It is a
/// label whose text is "28 Filaments", so that assistive technology reads it and hears it change.
class StatTile final : public QLabel {
    Q_OBJECT

public:
    /// What the symbol is painted with in a theme, and, washed out, the square behind it.
    struct Colors {
        QColor symbol;
        QColor wash;
    };
    using ColorsOf = Colors (*)(const Theme& theme);

    StatTile(QString symbol, ColorsOf colors, QString label, QWidget* parent);

    void setValue(qint64 value);
    /// Puts `mark` into the upper right corner, beside the number.
    void setCornerMark(QWidget* mark);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_symbol;
    ColorsOf m_colors;
    QString m_label;
    qint64 m_value = 0;
    int m_cornerWidth = 0;
};

} // namespace reelhouse
