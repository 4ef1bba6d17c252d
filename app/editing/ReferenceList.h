#pragma once

#include "core/model/EntityId.h"
#include "core/model/FilamentContainer.h"

#include <vector>

namespace reelhouse {

class StoreContext;

/// The identity of an entry of one of the four lists; unique within its list only.
using ReferenceId = EntityId<FilamentContainer>;

/// What may be said of a name before an entry is given it.
enum class NameCheck : quint8 { Free, Blank, Taken };

/// One of the four reference lists of the stock, for what is written once for all of them.
/// Each change is an action of the undo history and is saved at once; a failure to save is not
/// told. An identity without an entry is passed over.
class ReferenceList final {
public:
    ReferenceList(StoreContext& context, ReferenceKind kind);

    ReferenceKind kind() const { return m_kind; }
    StoreContext& context() const { return m_context; }

    /// Every entry, by name in the order of a file browser; equal names in the order of insertion.
    std::vector<ReferenceId> sortedEntries() const;
    /// The entry with this identity, or null. Not to be kept.
    FilamentContainer* find(ReferenceId id) const;
    /// The symbol of an entry: its own for a type, else the list's.
    QString symbol(const FilamentContainer& entry) const;

    /// Whether the entry `edited`, or a new one, may be named `typed`. Names are compared trimmed
    /// and folded, so "pla " is taken when "PLA" exists.
    NameCheck check(const QString& typed, ReferenceId edited = {}) const;

    /// Adds an entry with the trimmed name. `iconName` counts for types only.
    void add(const QString& typed, const QString& iconName = {});
    /// Gives the entry the trimmed name, and a type the icon.
    void edit(ReferenceId id, const QString& typed, const QString& iconName = {});
    /// Filaments that use the entry stay and lose it.
    void remove(ReferenceId id);

private:
    StoreContext& m_context;
    ReferenceKind m_kind;
};

} // namespace reelhouse
