#include "app/shell/UndoCommands.h"

#include "core/model/StoreContext.h"

#include <QtGui/QAction>
#include <QtWidgets/QMenu>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

/// "Annuler « Retirer une bobine »"; the verb alone without an action, which disables the entry.
void show(QAction& entry, const QString& verb, const QString& actionName)
{
    entry.setText(actionName.isEmpty() ? verb : verb + u" « "_s + actionName + u" »"_s);
    entry.setEnabled(!actionName.isEmpty());
}

} // namespace

UndoCommands::UndoCommands(StoreContext& context, QMenu& menu, QObject* parent)
    : QObject(parent)
    , m_context(context)
    , m_undo(new QAction(this))
    , m_redo(new QAction(this))
{
    m_undo->setShortcut(Qt::CTRL | Qt::Key_Z);
    m_redo->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Z);
    menu.addActions({m_undo, m_redo});
    connect(m_undo, &QAction::triggered, this, [this] { m_context.undo(); });
    connect(m_redo, &QAction::triggered, this, [this] { m_context.redo(); });
    connect(&context, &StoreContext::changed, this, &UndoCommands::refresh);
    refresh();
}

void UndoCommands::refresh()
{
    show(*m_undo, u"Annuler"_s, m_context.undoActionName());
    show(*m_redo, u"Rétablir"_s, m_context.redoActionName());
}

} // namespace reelhouse
