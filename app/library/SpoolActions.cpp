#include "app/library/SpoolActions.h"

#include "app/ui/Symbol.h"
#include "core/model/StoreContext.h"

#include <QtWidgets/QMenu>

#include <limits>

using namespace Qt::StringLiterals;

namespace reelhouse {

SpoolActions::SpoolActions(StoreContext& context, QObject* parent)
    : QObject(parent)
    , m_context(context)
{
}

void SpoolActions::addSpool(FilamentId id)
{
    Filament* filament = m_context.find(id);
    if (!filament || filament->spoolsCount() == std::numeric_limits<qint64>::max())
        return;
    m_context.perform(u"Ajouter une bobine"_s, [&] {
        filament->setSpoolsCount(filament->spoolsCount() + 1);
        filament->clampOpenedSpools();
    });
}

void SpoolActions::removeSpool(FilamentId id)
{
    Filament* filament = m_context.find(id);
    if (!filament || filament->spoolsCount() <= 1)
        return;
    m_context.perform(u"Retirer une bobine"_s, [&] {
        filament->setSpoolsCount(filament->spoolsCount() - 1);
        filament->clampOpenedSpools();
    });
}

void SpoolActions::addTo(QMenu& menu, FilamentId id)
{
    menu.addAction(
        symbolIcon(u"plus.circle"_s), u"Ajouter une bobine"_s, this, [this, id] { addSpool(id); });
    menu.addAction(symbolIcon(u"minus.circle"_s), u"Retirer une bobine"_s, this,
        [this, id] { removeSpool(id); });
}

} // namespace reelhouse
