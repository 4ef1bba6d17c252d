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
    /// A word about the stock at the other end of the bar, shown whole or, where there is no room,
    /// not at all. An empty one takes it away.
    void setNote(const QString& note);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void placeNote();

    QLabel* m_empty;
    QLabel* m_note;
    std::array<StatusItem*, 4> m_items;
};

} // namespace reelhouse
