#pragma once

#include "app/library/CardLayout.h"

#include <QtWidgets/QStyledItemDelegate>

namespace reelhouse {

class CardGrid;

/// Paints the cards: a large field of the filament's colour, and its texts below.
class CardDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit CardDelegate(CardGrid& grid);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    /// Shows the whole texts of a card that had to be cut.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
        const QModelIndex& index) override;

private:
    CardGrid& m_grid;
};

} // namespace reelhouse
