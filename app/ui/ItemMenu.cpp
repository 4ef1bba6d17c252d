#include "app/ui/ItemMenu.h"

#include <QtGui/QContextMenuEvent>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QMenu>

namespace reelhouse {

void openItemMenu(QAbstractItemView& view, const QContextMenuEvent& event,
    const std::function<void(QMenu&)>& fill)
{
    const bool isByKeyboard = event.reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = isByKeyboard
        ? view.currentIndex()
        : view.indexAt(view.viewport()->mapFromGlobal(event.globalPos()));
    if (!index.isValid())
        return;
    view.selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    auto* menu = new QMenu(&view);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    fill(*menu);
    menu->popup(isByKeyboard ? view.viewport()->mapToGlobal(view.visualRect(index).bottomLeft())
                             : event.globalPos());
}

} // namespace reelhouse
