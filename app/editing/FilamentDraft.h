#pragma once

#include "core/model/Filament.h"

namespace reelhouse {

class StoreContext;

/// What an editor of one filament shows, before any of it is written into the stock.
/// As it is made it describes nothing; see `newFilamentDraft` and `loadedDraft`.
struct FilamentDraft {
    std::array<qint64, referenceKindCount> references{}; ///< Identities, 0 for none.
    qint64 spoolsCount = 1;
    qint64 openedSpoolsCount = 0;
    QString colorHex;
    QString colorName;
    QString notes;

    qint64& reference(ReferenceKind kind) { return references[size_t(kind)]; }
    qint64 reference(ReferenceKind kind) const { return references[size_t(kind)]; }
    /// Changes the spools and lowers the opened ones to them where they are more.
    void setSpoolsCount(qint64 count);
    /// Drops every reference to an entry that is no longer in the stock.
    void forgetMissingReferences(StoreContext& context);

    bool operator==(const FilamentDraft&) const = default;
};

/// What the sheet for a new filament starts from.
FilamentDraft newFilamentDraft();
/// What the sheet of a filament starts from: at least one spool, no more opened ones than spools.
FilamentDraft loadedDraft(const Filament& filament);

/// Whether a new filament may be made from the draft: its type and its brand are chosen.
bool canBeAdded(const FilamentDraft& draft);
/// Whether saving the draft is worth while: it differs from the filament in any field, texts
/// compared to the last space.
bool hasChanges(const FilamentDraft& draft, const Filament& filament);

/// Puts a new filament into the stock, texts exactly as they stand, as one action of the user.
void addFilament(StoreContext& context, const FilamentDraft& draft);
/// Writes the draft into the filament as one action of the user and saves the stock. The colour's
/// name is trimmed, the notes are not; there is at least one spool. Without such a filament nothing
/// happens. A failure to save is not told: the change stays pending and goes with the next save.
void saveFilament(StoreContext& context, FilamentId id, const FilamentDraft& draft);

} // namespace reelhouse
