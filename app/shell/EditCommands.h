#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <functional>

class QAction;
class QKeySequence;
class QLineEdit;
class QMenu;

namespace reelhouse {

class StoreContext;

/// The entries of the menu "Édition". While a text field has the keyboard they edit its text, as
/// their keys do there. Where it has nothing to undo or to redo, the first two put actions of the
/// user back and do them again, each with the name of the action; without a field the others rest.
class EditCommands final : public QObject {
    Q_OBJECT

public:
    EditCommands(StoreContext& context, QMenu& menu, QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QAction* addFieldCommand(
        const QString& text, const QKeySequence& key, const std::function<void(QLineEdit&)>& edit);
    /// The text field that has the keyboard; null for one that is going.
    QLineEdit* field() const;
    void followFocus(const QWidget* before, QWidget* now);
    bool fieldCanUndo() const;
    bool fieldCanRedo() const;
    void refresh();
    void undo();
    void redo();

    StoreContext& m_context;
    QPointer<QObject> m_fieldObject; ///< The field that has the keyboard.
    QAction* m_undo;
    QAction* m_redo;
    QAction* m_cut;
    QAction* m_copy;
    QAction* m_paste;
    QAction* m_selectAll;
};

} // namespace reelhouse
