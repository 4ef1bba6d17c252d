#pragma once

#include "core/filters/StockTotals.h"

#include <QtWidgets/QWidget>

#include <array>

class QLabel;

namespace reelhouse {

class StatusItem;

/// The thin bar under the library with the totals of the whole stock.
class StatusBarView final : public QWidget {
    Q_OBJECT

public:
    explicit StatusBarView(QWidget* parent = nullptr);

    void setTotals(const StockTotals& totals);

private:
    QLabel* m_empty;
    std::array<StatusItem*, 4> m_items;
};

} // namespace reelhouse
