#pragma once

#include "core/filters/StockDistribution.h"
#include "core/filters/StockTotals.h"

#include <QtWidgets/QScrollArea>

#include <array>

class QBoxLayout;

namespace reelhouse {

class StatPanel;
class StatTile;

/// The whole stock in numbers: its totals, and how it divides by type, brand and location.
class StatisticsView final : public QScrollArea {
    Q_OBJECT

public:
    explicit StatisticsView(QWidget* parent = nullptr);

    void setStock(const StockTotals& totals, const StockDistribution& distribution);

signals:
    /// The library is to show this group.
    void groupChosen(const FilterSelection& selection);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* makeHeader(QWidget* parent);
    QWidget* makeSummary(QWidget* parent);

    std::array<StatTile*, 3> m_tiles{};
    std::array<StatPanel*, 3> m_panels{};
    QBoxLayout* m_panelRow;
};

} // namespace reelhouse
