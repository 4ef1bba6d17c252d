#pragma once

#include "app/library/CardGeometry.h"
#include "app/library/CardLayout.h"
#include "app/library/SelectedFilament.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QListView>

namespace reelhouse {

class FilamentTableModel;
class SpoolActions;
class StoreContext;

/// The cards. Their places are found by arithmetic, so a stock of any size is laid out at once.
/// After the last card the grid leaves the place of one more.
class CardGrid final : public QListView {
    Q_OBJECT

public:
    CardGrid(StoreContext& context, SpoolActions& actions, QWidget* parent);

    /// Finds out how the counts of the whole stock fit into the cards; called before `showRows`
    /// after every change of the stock.
    void measureCounts();
    /// Shows these filaments, in this order; called again after every change of the stock.
    void showRows(std::vector<FilamentId> rows);
    /// What is searched for, as `normalizedForSearch` gives it: it stands out in the cards.
    void setFoldedSearch(const QString& search);
    const QString& foldedSearch() const { return m_foldedSearch; }
    SelectedFilament& selection() { return *m_selected; }
    CardLayout::Counts counts() const { return m_counts; }
    CardGeometry geometryOfCards() const;
    /// The free place after the last card, in the viewport.
    QRect placeAfterLast() const;

    QRect visualRect(const QModelIndex& index) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    QModelIndex indexAt(const QPoint& point) const override;
    void doItemsLayout() override;
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
        const QList<int>& roles) override;

signals:
    /// The cards may lie elsewhere in the viewport.
    void moved();

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(
        const QItemSelection& selected, const QItemSelection& deselected) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    int horizontalOffset() const override { return 0; }
    int verticalOffset() const override;
    bool isIndexHidden(const QModelIndex&) const override { return false; }
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    int cardCount() const;
    void announce(QAccessible::Event what, const QModelIndex& index);
    void hover(int row);
    void decideCounts();

    StoreContext& m_context;
    SpoolActions& m_actions;
    FilamentTableModel* m_model;
    SelectedFilament* m_selected;
    FilamentId m_widestCounts; ///< The filament whose two counts are the longest.
    CardLayout::Counts m_counts = CardLayout::Counts::Beside;
    QString m_foldedSearch;
    int m_hoveredRow = -1;
};

} // namespace reelhouse
