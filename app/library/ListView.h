#pragma once

#include "app/library/SelectedFilament.h"

#include <QtWidgets/QTableView>

#include <vector>

namespace reelhouse {

class FilamentRowDelegate;
class FilamentTableModel;
class SpoolActions;
class StoreContext;

/// The stock as a table, one row a filament. The selection and the scroll position hold across
/// edits and filters: the selection goes by identity. Columns share the width until the user drags
/// one.
class ListView final : public QTableView {
    Q_OBJECT

public:
    ListView(StoreContext& context, SpoolActions& actions, QWidget* parent = nullptr);

    /// Shows these filaments, in this order; called again after every change of the stock.
    void showRows(std::vector<FilamentId> rows) { m_selected->showRows(std::move(rows)); }
    SelectedFilament& selection() { return *m_selected; }
    /// The selected filament, or nothing.
    FilamentId selectedFilament() const { return m_selected->shownId(); }

    /// What is searched for, as `normalizedForSearch` gives it: it stands out in the rows.
    void setFoldedSearch(const QString& search);
    const QString& foldedSearch() const { return m_foldedSearch; }

    /// The row under the pointer, or -1.
    int hoveredRow() const { return m_hoveredRow; }
    /// Where every row ends, whether the scroll bar stands beside it or not.
    int rowsEnd() const;
    /// Where the pointer is, in the viewport.
    QPoint pointerPosition() const { return m_pointerPosition; }

protected:
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void followPointer(QPoint position);
    void shareColumns();
    void updateMetrics();

    SpoolActions& m_actions;
    FilamentTableModel* m_model;
    SelectedFilament* m_selected;
    QWidget* m_besideHeader; ///< Over the scroll bar, which begins where the rows do.
    QString m_foldedSearch;
    bool m_isSharingColumns = false;
    bool m_hasOwnWidths = false; ///< The user has dragged a column.
    int m_hoveredRow = -1;
    QPoint m_pointerPosition{-1, -1};
};

/// Widths of the five columns in a list `available` wide: in fixed shares, never below what each
/// column is to have, or `needed` for its texts in the font of the day where that is more.
std::vector<int> listColumnWidths(int available, const std::vector<int>& needed = {});

} // namespace reelhouse
