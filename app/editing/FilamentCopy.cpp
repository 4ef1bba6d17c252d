#include "app/editing/FilamentCopy.h"

#include "app/editing/CommandTexts.h"
#include "core/model/StoreContext.h"

#include <QtCore/QStringList>

using namespace Qt::StringLiterals;

namespace reelhouse {

QString notesOfCopy(const Filament& original)
{
    QStringList names;
    for (const ReferenceKind kind : everyReferenceKind) {
        if (const FilamentContainer* entry = original.reference(kind))
            names += entry->name();
    }
    return names.isEmpty() ? u"Copie"_s : u"Copie de "_s + names.join(u' ');
}

FilamentId duplicateFilament(StoreContext& context, FilamentId original)
{
    const Filament* source = context.find(original);
    if (!source)
        return {};
    FilamentId copy;
    context.perform(duplicateFilamentText(), [&] {
        copy = context
                   .insert(std::make_unique<Filament>(source->type(), source->brand(),
                       source->range(), source->location(), 1, 0, source->colorHex(), QString(),
                       notesOfCopy(*source)))
                   .id();
    });
    return copy;
}

} // namespace reelhouse
