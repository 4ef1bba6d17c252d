#pragma once

#include "app/ui/Theme.h"
#include "core/filters/StockDistribution.h"

#include <QtWidgets/QProgressBar>

namespace reelhouse {

/// One group of the stock: its name, its number of filaments, and a bar for its share of the whole.
/// A click, Return or Space on a group that can be shown asks for it.
class StatBar final : public QProgressBar {
    Q_OBJECT

public:
    /// Around what is drawn, for the focus ring.
    static constexpr int margin = 4;

    explicit StatBar(ColorRole color, QWidget* parent);

    /// `total` is the number of filaments in the stock.
    void setGroup(const StockGroup& group, qint64 total);
    /// How much of a bar `available` wide is filled.
    static qreal filledWidth(qreal available, qint64 value, qint64 total);

    /// "13 sur 28", for assistive technology.
    QString text() const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// The library is to show this group.
    void groupChosen(const FilterSelection& selection);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void choose();

    StockGroup m_group;
    qint64 m_total = 0;
    ColorRole m_color;
};

} // namespace reelhouse
