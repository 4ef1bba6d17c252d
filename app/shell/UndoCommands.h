#pragma once

#include <QtCore/QObject>

class QAction;
class QMenu;

namespace reelhouse {

class StoreContext;

/// The entries of the menu "Édition" that put actions of the user back and do them again, each with
/// the name of the action.
class UndoCommands final : public QObject {
    Q_OBJECT

public:
    UndoCommands(StoreContext& context, QMenu& menu, QObject* parent);

private:
    void refresh();

    StoreContext& m_context;
    QAction* m_undo;
    QAction* m_redo;
};

} // namespace reelhouse
