#pragma once

#include "core/model/EntityId.h"

#include <QtCore/QList>
#include <QtCore/QObject>

class QAction;
class QKeySequence;
class QMenu;

namespace reelhouse {

class StoreContext;

/// What a user does to one filament in place: its counts, and its removal. The list and the cards
/// share one object of this class and tell it which filament is selected; each change is an action
/// of the undo history, repeated ones on one filament together. An identity without a filament is
/// passed over.
class SpoolActions final : public QObject {
    Q_OBJECT

public:
    SpoolActions(StoreContext& context, QObject* parent);

    /// The filament that the commands act on from now on; nothing's identity disables them.
    void setTarget(FilamentId id);
    FilamentId target() const { return m_target; }
    /// The commands with their keys, for the views in which the keys are to work.
    const QList<QAction*>& commands() const { return m_commands; }
    /// Adds the commands, in the order of the context menu of a row or card.
    void addTo(QMenu& menu);

    /// One spool more; nothing at the largest count that can be stored.
    void addSpool(FilamentId id);
    /// One spool less, opened ones lowered with it. At the last one asks to delete the filament.
    void removeSpool(FilamentId id);
    /// One opened spool more, unless all are opened.
    void addOpenedSpool(FilamentId id);
    /// One opened spool less, unless none is.
    void removeOpenedSpool(FilamentId id);
    /// Deletes the filament without a question.
    void removeFilament(FilamentId id);

signals:
    /// The user wants the filament deleted; to be confirmed first.
    void deletionRequested(FilamentId id);

private:
    using Command = void (SpoolActions::*)(FilamentId);

    void addCommand(
        const QString& symbol, const QString& text, const QKeySequence& key, Command command);
    void requestDeletion(FilamentId id) { emit deletionRequested(id); }

    StoreContext& m_context;
    FilamentId m_target;
    QList<QAction*> m_commands;
};

} // namespace reelhouse
