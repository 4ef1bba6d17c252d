#include "app/editing/ReferenceListView.h"

#include "app/editing/ReferenceListModel.h"
#include "app/editing/ReferenceRowDelegate.h"
#include "app/editing/ReferenceTexts.h"
#include "app/ui/ItemMenu.h"
#include "app/ui/Symbol.h"

#include <QtGui/QAction>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QMenu>
#include <QtWidgets/QScrollBar>

using namespace Qt::StringLiterals;

namespace reelhouse {

ReferenceListView::ReferenceListView(const ReferenceList& list, QWidget* parent)
    : QListView(parent)
    , m_model(new ReferenceListModel(list, this))
{
    setAccessibleName(referenceTexts(list.kind()).title);
    setModel(m_model);
    setItemDelegate(new ReferenceRowDelegate(this));
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setUniformItemSizes(true);
    setMouseTracking(true);
    setFrameShape(NoFrame);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Maximum);
    viewport()->setAutoFillBackground(false);
    viewport()->setAttribute(Qt::WA_Hover);

    addCommand(u"pencil"_s, u"Modifier"_s, Qt::Key_F2, &ReferenceListView::editRequested);
    addCommand(u"trash"_s, u"Supprimer"_s, Qt::Key_Delete, &ReferenceListView::deletionRequested);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
        &ReferenceListView::enableCommands);
    refresh();
}

void ReferenceListView::addCommand(
    const QString& symbol, const QString& text, const QKeySequence& key, Request request)
{
    auto* action = new QAction(symbolIcon(symbol), text, this);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setShortcutVisibleInContextMenu(true);
    connect(action, &QAction::triggered, this,
        [this, request] { emit(this->*request)(selectedEntry()); });
    addAction(action);
}

void ReferenceListView::enableCommands()
{
    for (QAction* command : actions())
        command->setEnabled(bool(selectedEntry()));
}

void ReferenceListView::refresh()
{
    const ReferenceId selected = selectedEntry();
    const int formerRow = currentIndex().row();
    const int scrolled = verticalScrollBar()->value();
    m_model->setRows(m_model->list().sortedEntries());
    updateGeometry();
    if (!currentIndex().isValid()) {
        const int row = m_model->rowOf(selected);
        if (row >= 0) {
            setCurrentIndex(m_model->index(row));
        } else if (formerRow >= 0) {
            // The arrow keys go on where the row was that is gone.
            const int nearest = std::min(formerRow, m_model->rowCount() - 1);
            selectionModel()->setCurrentIndex(
                m_model->index(nearest), QItemSelectionModel::NoUpdate);
        }
        verticalScrollBar()->setValue(scrolled);
    }
    enableCommands();
}

ReferenceId ReferenceListView::selectedEntry() const
{
    const QModelIndexList selected = selectionModel()->selectedRows();
    return selected.isEmpty() ? ReferenceId{} : m_model->idAt(selected.first().row());
}

QSize ReferenceListView::sizeHint() const
{
    const qint64 height = qint64(m_model->rowCount()) * ReferenceRowDelegate::rowHeight();
    return {0, int(std::min<qint64>(height, QWIDGETSIZE_MAX))};
}

QSize ReferenceListView::minimumSizeHint() const
{
    return {0, std::min(sizeHint().height(), 2 * ReferenceRowDelegate::rowHeight())};
}

void ReferenceListView::changeEvent(QEvent* event)
{
    QListView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange
        || event->type() == QEvent::ApplicationFontChange) {
        scheduleDelayedItemsLayout();
        updateGeometry();
    }
}

void ReferenceListView::contextMenuEvent(QContextMenuEvent* event)
{
    openItemMenu(*this, *event, [this](QMenu& menu) { menu.addActions(actions()); });
}

void ReferenceListView::mousePressEvent(QMouseEvent* event)
{
    QListView::mousePressEvent(event);
    if (!indexAt(event->position().toPoint()).isValid())
        setCurrentIndex({});
}

} // namespace reelhouse
