#include "app/library/SelectedFilament.h"

#include "app/library/FilamentTableModel.h"
#include "app/library/SpoolActions.h"
#include "app/ui/ItemMenu.h"

#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QScrollBar>

namespace reelhouse {

namespace {

constexpr auto selectWholeRow = QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;

} // namespace

SelectedFilament::SelectedFilament(
    QAbstractItemView& view, FilamentTableModel& model, SpoolActions& actions)
    : QObject(&view)
    , m_view(view)
    , m_model(model)
    , m_actions(actions)
{
    connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        m_id = shownId();
        m_actions.setTarget(m_id);
    });
    connect(&view, &QAbstractItemView::activated, this, [this](const QModelIndex& index) {
        emit m_actions.detailRequested(m_model.idAt(index.row()));
    });
}

void SelectedFilament::select(FilamentId id)
{
    m_id = id;
    restore(0);
}

FilamentId SelectedFilament::shownId() const
{
    const QModelIndexList selected = m_view.selectionModel()->selectedIndexes();
    return selected.isEmpty() ? FilamentId{} : m_model.idAt(selected.first().row());
}

void SelectedFilament::takeKeyboard()
{
    m_view.setFocus();
    if (!shownId())
        m_view.setCurrentIndex(m_model.index(0, 0));
}

void SelectedFilament::showRows(std::vector<FilamentId> rows)
{
    const int column = std::max(0, m_view.currentIndex().column());
    const int scrolled = m_view.verticalScrollBar()->value();
    m_model.setRows(std::move(rows));
    if (shownId() != m_id) {
        restore(column);
        m_view.verticalScrollBar()->setValue(scrolled);
    }
    m_actions.setTarget(shownId());
}

void SelectedFilament::restore(int column)
{
    const FilamentId wanted = m_id;
    const int row = wanted ? m_model.rowOf(wanted) : -1;
    if (row >= 0)
        m_view.selectionModel()->setCurrentIndex(m_model.index(row, column), selectWholeRow);
    else
        m_view.selectionModel()->clear();
    m_id = wanted; // Whatever the selection said of itself meanwhile.
    m_actions.setTarget(shownId());
}

void SelectedFilament::openMenu(const QContextMenuEvent& event)
{
    openItemMenu(m_view, event, [this](QMenu& menu) { m_actions.addTo(menu); });
}

} // namespace reelhouse
