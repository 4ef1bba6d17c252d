#include "app/ui/ContextMenuKey.h"

#include <QtGui/QContextMenuEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

namespace reelhouse {

ContextMenuKey::ContextMenuKey(QObject* parent)
    : QObject(parent)
{
    qApp->installEventFilter(this);
}

bool ContextMenuKey::eventFilter(QObject* watched, QEvent* event)
{
    QWidget* focused = QApplication::focusWidget();
    if (event->type() != QEvent::KeyPress || !focused || watched != focused)
        return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.key() != Qt::Key_F10 || key.modifiers() != Qt::ShiftModifier)
        return false;
    const QPoint place = focused->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, place, focused->mapToGlobal(place));
    QApplication::sendEvent(focused, &menu);
    return true;
}

} // namespace reelhouse
