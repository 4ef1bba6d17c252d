#include "app/editing/FilamentDeletion.h"

#include "app/ui/Alert.h"
#include "core/model/StoreContext.h"

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

void deleteFilament(StoreContext& context, FilamentId id)
{
    if (Filament* filament = context.find(id))
        context.perform(u"Supprimer"_s, [&] { context.remove(*filament); });
}

} // namespace

QString deletionQuestion(const Filament& filament)
{
    const QString name = filament.type() ? filament.type()->name() : u"ce filament"_s;
    return u"Voulez-vous vraiment supprimer "_s + name + u" ?"_s;
}

void askToDelete(
    StoreContext& context, FilamentId id, QWidget* parent, const std::function<void()>& deleted)
{
    const Filament* filament = context.find(id);
    if (!filament)
        return;
    askBeforeDestroying(u"Supprimer ce filament ?"_s, deletionQuestion(*filament), u"Supprimer"_s,
        parent, [&context, id, deleted] {
            deleteFilament(context, id);
            if (deleted)
                deleted();
        });
}

} // namespace reelhouse
