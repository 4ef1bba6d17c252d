#pragma once

#include <QtWidgets/QStyledItemDelegate>

namespace reelhouse {

/// Paints the rows of a reference list: symbol, name, usage, and the colours of the filaments that
/// use the entry. The rows lie in a panel with rounded corners, which they do not paint over.
class ReferenceRowDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// The height every row needs with the application font as it is now.
    static int rowHeight();
    static constexpr qreal panelRadius = 12;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// Shows a name that had to be cut.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
        const QModelIndex& index) override;
};

} // namespace reelhouse
