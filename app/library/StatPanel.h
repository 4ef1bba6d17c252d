#pragma once

#include "app/ui/Theme.h"
#include "core/filters/StockDistribution.h"

#include <QtWidgets/QWidget>

class QLabel;
class QVBoxLayout;

namespace reelhouse {

class StatBar;

/// One way in which the stock divides: a title and a bar for each group.
class StatPanel final : public QWidget {
    Q_OBJECT

public:
    StatPanel(const QString& title, ColorRole barColor, QWidget* parent);

    void setGroups(const std::vector<StockGroup>& groups, qint64 total);

signals:
    void groupChosen(const FilterSelection& selection);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ColorRole m_barColor;
    QVBoxLayout* m_column;
    QLabel* m_noData;
    QList<StatBar*> m_bars;
};

} // namespace reelhouse
