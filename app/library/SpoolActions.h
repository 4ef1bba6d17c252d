#pragma once

#include "core/model/EntityId.h"

#include <QtCore/QList>
#include <QtCore/QObject>

class QAction;
class QKeySequence;
class QMenu;

namespace reelhouse {

class StoreContext;

/// What a user does to the stock from a row or a card. The list and the cards share one object of
/// this class and tell it which filament is selected; each change is an action of the undo history,
/// repeated ones on one filament together. An identity without a filament is passed over.
class SpoolActions final : public QObject {
    Q_OBJECT

public:
    SpoolActions(StoreContext& context, QObject* parent);

    /// The filament that the commands act on from now on; nothing's identity disables them.
    void setTarget(FilamentId id);
    FilamentId target() const { return m_target; }
    /// The commands with their keys, for the views in which the keys are to work.
    const QList<QAction*>& commands() const { return m_commands; }
    /// "Ajouter un filament", which needs no target; its key works in the whole window of the
    /// widget that it is added to.
    QAction* additionCommand() const { return m_additionCommand; }
    /// Adds all of them, in the order of the context menu of a row or card.
    void addTo(QMenu& menu);

    /// One spool more; nothing at the largest count that can be stored.
    void addSpool(FilamentId id);
    /// One spool less, opened ones lowered with it. At the last one asks to delete the filament.
    void removeSpool(FilamentId id);
    /// One opened spool more, unless all are opened.
    void addOpenedSpool(FilamentId id);
    /// One opened spool less, unless none is.
    void removeOpenedSpool(FilamentId id);
    /// Puts a copy into the stock and asks for its sheet.
    void duplicateFilament(FilamentId id);

signals:
    /// The user wants to add a filament: its sheet is to be opened.
    void additionRequested();
    /// The sheet of this filament is to be opened.
    void detailRequested(FilamentId id);
    /// The user wants the filament deleted; to be confirmed first.
    void deletionRequested(FilamentId id);

private:
    using Command = void (SpoolActions::*)(FilamentId);

    void addCommand(
        const QString& symbol, const QString& text, const QKeySequence& key, Command command);
    void requestDeletion(FilamentId id) { emit deletionRequested(id); }

    StoreContext& m_context;
    FilamentId m_target;
    QAction* m_additionCommand;
    QList<QAction*> m_commands;
};

} // namespace reelhouse
