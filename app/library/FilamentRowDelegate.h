#pragma once

#include <QtWidgets/QStyledItemDelegate>

namespace reelhouse {

class Filament;
class ListView;

/// Paints the cells of the list: spool disc, texts, counts and, on the row under the pointer or the
/// current one, the two step buttons. Each cell draws the row's one ground clipped to itself.
class FilamentRowDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit FilamentRowDelegate(ListView& list);

    /// The height every row needs with the application font as it is now.
    static int rowHeight();

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    /// Clicks and double-clicks on − and + stay here, so that two quick clicks open nothing.
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
        const QModelIndex& index) override;
    /// Shows the whole text of a cell that had to be cut.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
        const QModelIndex& index) override;

signals:
    void addSpoolRequested(const QModelIndex& index) const;
    void removeSpoolRequested(const QModelIndex& index) const;

private:
    enum class StepButton : quint8 { None, Minus, Plus };

    bool hasStepButtons(const QStyleOptionViewItem& option, const Filament& filament) const;
    StepButton stepButtonAt(
        const QStyleOptionViewItem& option, const QModelIndex& index, QPoint position) const;
    void paintGround(QPainter* painter, const QStyleOptionViewItem& option, int row) const;
    void paintSteps(QPainter* painter, const QStyleOptionViewItem& option) const;

    ListView& m_list;
};

} // namespace reelhouse
