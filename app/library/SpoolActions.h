#pragma once

#include "core/model/EntityId.h"

#include <QtCore/QObject>

class QMenu;

namespace reelhouse {

class StoreContext;

/// What a user does to the counts of one filament in place. Each is one action of the undo history.
/// An identity without a filament is passed over.
class SpoolActions final : public QObject {
    Q_OBJECT

public:
    SpoolActions(StoreContext& context, QObject* parent);

    /// One spool more; nothing at the largest count that can be stored.
    void addSpool(FilamentId id);
    /// One spool less, opened ones lowered with it; nothing when one spool or none is left.
    void removeSpool(FilamentId id);

    /// Adds the entries of a filament's context menu.
    void addTo(QMenu& menu, FilamentId id);

private:
    StoreContext& m_context;
};

} // namespace reelhouse
