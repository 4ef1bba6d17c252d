#include "app/shell/EditCommands.h"

#include "core/model/StoreContext.h"

#include <QtCore/QMimeData>
#include <QtGui/QAction>
#include <QtGui/QClipboard>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

/// "Annuler « Retirer une bobine »"; the verb alone without an action.
QString named(const QString& verb, const QString& actionName)
{
    return actionName.isEmpty() ? verb : verb + u" « "_s + actionName + u" »"_s;
}

} // namespace

EditCommands::EditCommands(StoreContext& context, QMenu& menu, QObject* parent)
    : QObject(parent)
    , m_context(context)
    , m_undo(new QAction(this))
    , m_redo(new QAction(this))
    , m_cut(addFieldCommand(u"&Couper"_s, Qt::CTRL | Qt::Key_X, &QLineEdit::cut))
    , m_copy(addFieldCommand(u"C&opier"_s, Qt::CTRL | Qt::Key_C, &QLineEdit::copy))
    , m_paste(addFieldCommand(u"Co&ller"_s, Qt::CTRL | Qt::Key_V, &QLineEdit::paste))
    , m_selectAll(
          addFieldCommand(u"&Tout sélectionner"_s, Qt::CTRL | Qt::Key_A, &QLineEdit::selectAll))
{
    m_undo->setShortcut(Qt::CTRL | Qt::Key_Z);
    m_redo->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Z);
    menu.addActions({m_undo, m_redo});
    menu.addSeparator();
    menu.addActions({m_cut, m_copy, m_paste, m_selectAll});

    connect(m_undo, &QAction::triggered, this, &EditCommands::undo);
    connect(m_redo, &QAction::triggered, this, &EditCommands::redo);
    connect(&menu, &QMenu::aboutToShow, this, &EditCommands::refresh);
    connect(qApp, &QApplication::focusChanged, this, &EditCommands::followFocus);
    connect(&context, &StoreContext::changed, this, &EditCommands::refresh);
    refresh();
}

QAction* EditCommands::addFieldCommand(
    const QString& text, const QKeySequence& key, const std::function<void(QLineEdit&)>& edit)
{
    auto* command = new QAction(text, this);
    command->setShortcut(key);
    connect(command, &QAction::triggered, this, [this, edit] {
        if (QLineEdit* edited = field())
            edit(*edited);
    });
    return command;
}

QLineEdit* EditCommands::field() const
{
    return qobject_cast<QLineEdit*>(m_fieldObject.data());
}

void EditCommands::followFocus(const QWidget* /*before*/, QWidget* now)
{
    // Who walks through the menu bar with the keyboard wants to edit what had it before.
    if (!now || qobject_cast<const QMenuBar*>(now))
        return;
    if (m_fieldObject)
        m_fieldObject->removeEventFilter(this);
    m_fieldObject = qobject_cast<QLineEdit*>(now);
    if (m_fieldObject)
        m_fieldObject->installEventFilter(this);
    refresh();
}

bool EditCommands::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_fieldObject || event->type() != QEvent::ShortcutOverride)
        return QObject::eventFilter(watched, event);
    // A field keeps the keys of undo and redo for itself, even with nothing to undo.
    const QKeySequence key(static_cast<const QKeyEvent*>(event)->keyCombination());
    refresh();
    if ((key == m_undo->shortcut() && !fieldCanUndo())
        || (key == m_redo->shortcut() && !fieldCanRedo())) {
        event->ignore();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

bool EditCommands::fieldCanUndo() const
{
    const QLineEdit* edited = field();
    return edited && edited->isUndoAvailable();
}

bool EditCommands::fieldCanRedo() const
{
    const QLineEdit* edited = field();
    return edited && edited->isRedoAvailable();
}

void EditCommands::refresh()
{
    const QString undoName = fieldCanUndo() ? QString() : m_context.undoActionName();
    const QString redoName = fieldCanRedo() ? QString() : m_context.redoActionName();
    m_undo->setText(named(u"&Annuler"_s, undoName));
    m_redo->setText(named(u"&Rétablir"_s, redoName));
    m_undo->setEnabled(fieldCanUndo() || !undoName.isEmpty());
    m_redo->setEnabled(fieldCanRedo() || !redoName.isEmpty());

    const QLineEdit* edited = field();
    const bool hasSelection = edited && edited->hasSelectedText();
    const bool isWritable = edited && !edited->isReadOnly();
    const QMimeData* clipboard = QGuiApplication::clipboard()->mimeData();
    m_cut->setEnabled(hasSelection && isWritable);
    m_copy->setEnabled(hasSelection);
    m_paste->setEnabled(isWritable && clipboard && clipboard->hasText());
    m_selectAll->setEnabled(edited && !edited->text().isEmpty());
}

void EditCommands::undo()
{
    if (fieldCanUndo())
        field()->undo();
    else
        m_context.undo();
}

void EditCommands::redo()
{
    if (fieldCanRedo())
        field()->redo();
    else
        m_context.redo();
}

} // namespace reelhouse
