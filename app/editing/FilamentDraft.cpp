#include "app/editing/FilamentDraft.h"

#include "app/editing/CommandTexts.h"
#include "core/model/StoreContext.h"
#include "core/text/Folding.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

template <class T>
T* chosenEntry(StoreContext& context, const FilamentDraft& draft, ReferenceKind kind)
{
    return context.find(EntityId<T>{draft.reference(kind)});
}

} // namespace

void FilamentDraft::setSpoolsCount(qint64 count)
{
    spoolsCount = count;
    openedSpoolsCount = std::min(openedSpoolsCount, std::max(count, qint64(0)));
}

void FilamentDraft::forgetMissingReferences(StoreContext& context)
{
    for (const ReferenceKind kind : everyReferenceKind) {
        if (!context.find(kind, reference(kind)))
            reference(kind) = 0;
    }
}

FilamentDraft newFilamentDraft()
{
    FilamentDraft draft;
    draft.colorHex = u"#4CAF50"_s;
    return draft;
}

FilamentDraft loadedDraft(const Filament& filament)
{
    const Filament::Values values = filament.values();
    FilamentDraft draft;
    draft.references = values.references;
    draft.spoolsCount = std::max(values.spoolsCount, qint64(1));
    draft.openedSpoolsCount
        = std::min(std::max(values.openedSpoolsCount, qint64(0)), draft.spoolsCount);
    draft.colorHex = values.colorHex;
    draft.colorName = values.colorName;
    draft.notes = values.notes;
    return draft;
}

bool canBeAdded(const FilamentDraft& draft)
{
    return draft.reference(ReferenceKind::Type) != 0 && draft.reference(ReferenceKind::Brand) != 0;
}

bool hasChanges(const FilamentDraft& draft, const Filament& filament)
{
    const Filament::Values values = filament.values();
    return draft
        != FilamentDraft{values.references, values.spoolsCount, values.openedSpoolsCount,
            values.colorHex, values.colorName, values.notes};
}

void addFilament(StoreContext& context, const FilamentDraft& draft)
{
    context.perform(addFilamentText(), [&] {
        context.insert(std::make_unique<Filament>(
            chosenEntry<FilamentType>(context, draft, ReferenceKind::Type),
            chosenEntry<Brand>(context, draft, ReferenceKind::Brand),
            chosenEntry<FilamentRange>(context, draft, ReferenceKind::Range),
            chosenEntry<Location>(context, draft, ReferenceKind::Location), draft.spoolsCount,
            draft.openedSpoolsCount, draft.colorHex, draft.colorName, draft.notes));
    });
}

void saveFilament(StoreContext& context, FilamentId id, const FilamentDraft& draft)
{
    Filament* filament = context.find(id);
    if (!filament)
        return;
    context.perform(u"Modifier un filament"_s, [&] {
        filament->setType(chosenEntry<FilamentType>(context, draft, ReferenceKind::Type));
        filament->setBrand(chosenEntry<Brand>(context, draft, ReferenceKind::Brand));
        filament->setRange(chosenEntry<FilamentRange>(context, draft, ReferenceKind::Range));
        filament->setLocation(chosenEntry<Location>(context, draft, ReferenceKind::Location));
        const qint64 spools = std::max(draft.spoolsCount, qint64(1));
        filament->setSpoolsCount(spools);
        filament->setOpenedSpoolsCount(std::min(spools, std::max(draft.openedSpoolsCount, 0LL)));
        filament->setColorHex(draft.colorHex);
        filament->setColorName(trimmed(draft.colorName).toString());
        filament->setNotes(draft.notes);
    });
    static_cast<void>(context.save()); // What could not be saved goes with the next save.
}

} // namespace reelhouse
