#include "app/library/SpoolActions.h"

#include "app/editing/CommandTexts.h"
#include "app/editing/FilamentCopy.h"
#include "app/ui/Symbol.h"
#include "core/model/StoreContext.h"

#include <QtGui/QAction>
#include <QtWidgets/QMenu>

#include <limits>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

const QString addSpoolText = u"Ajouter une bobine"_s;
const QString removeSpoolText = u"Retirer une bobine"_s;
const QString addOpenedSpoolText = u"Ajouter une bobine entamée"_s;
const QString removeOpenedSpoolText = u"Supprimer une bobine entamée"_s;

/// Adds `difference` to the spools of a filament, as an action of that name.
void changeSpools(StoreContext& context, Filament& filament, const QString& name, qint64 difference)
{
    context.performRepeated(name, [&] {
        filament.setSpoolsCount(filament.spoolsCount() + difference);
        filament.clampOpenedSpools();
    });
}

void changeOpened(StoreContext& context, Filament& filament, const QString& name, qint64 difference)
{
    context.performRepeated(name, [&] {
        filament.setOpenedSpoolsCount(filament.openedSpoolsCount() + difference);
        filament.clampOpenedSpools();
    });
}

} // namespace

SpoolActions::SpoolActions(StoreContext& context, QObject* parent)
    : QObject(parent)
    , m_context(context)
    , m_additionCommand(new QAction(symbolIcon(u"plus"_s), addFilamentText(), this))
{
    m_additionCommand->setShortcut(Qt::CTRL | Qt::Key_N);
    m_additionCommand->setShortcutVisibleInContextMenu(true);
    connect(m_additionCommand, &QAction::triggered, this, &SpoolActions::additionRequested);
    addCommand(u"plus.circle"_s, addSpoolText, Qt::ALT | Qt::Key_Up, &SpoolActions::addSpool);
    addCommand(
        u"minus.circle"_s, removeSpoolText, Qt::ALT | Qt::Key_Down, &SpoolActions::removeSpool);
    addCommand(u"plus.circle"_s, addOpenedSpoolText, Qt::ALT | Qt::SHIFT | Qt::Key_Up,
        &SpoolActions::addOpenedSpool);
    addCommand(u"minus.circle"_s, removeOpenedSpoolText, Qt::ALT | Qt::SHIFT | Qt::Key_Down,
        &SpoolActions::removeOpenedSpool);
    addCommand(u"doc.on.doc"_s, duplicateFilamentText(), Qt::CTRL | Qt::Key_D,
        &SpoolActions::duplicateFilament);
    addCommand(u"trash"_s, u"Supprimer"_s, Qt::Key_Delete, &SpoolActions::requestDeletion);
    setTarget({});
}

void SpoolActions::addCommand(
    const QString& symbol, const QString& text, const QKeySequence& key, Command command)
{
    auto* action = new QAction(symbolIcon(symbol), text, this);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    action->setShortcutVisibleInContextMenu(true);
    connect(action, &QAction::triggered, this, [this, command] { (this->*command)(m_target); });
    m_commands << action;
}

void SpoolActions::setTarget(FilamentId id)
{
    m_target = id;
    for (QAction* command : m_commands)
        command->setEnabled(bool(id));
}

void SpoolActions::addTo(QMenu& menu)
{
    menu.addAction(m_additionCommand);
    menu.addSeparator();
    menu.addActions(m_commands.mid(0, 2));
    menu.addSeparator();
    menu.addActions(m_commands.mid(2, 2));
    menu.addSeparator();
    menu.addAction(m_commands.at(4));
    menu.addSeparator();
    menu.addAction(m_commands.at(5));
}

void SpoolActions::addSpool(FilamentId id)
{
    Filament* filament = m_context.find(id);
    if (filament && filament->spoolsCount() < std::numeric_limits<qint64>::max())
        changeSpools(m_context, *filament, addSpoolText, 1);
}

void SpoolActions::removeSpool(FilamentId id)
{
    Filament* filament = m_context.find(id);
    if (!filament)
        return;
    if (filament->spoolsCount() <= 1)
        emit deletionRequested(id);
    else
        changeSpools(m_context, *filament, removeSpoolText, -1);
}

void SpoolActions::addOpenedSpool(FilamentId id)
{
    Filament* filament = m_context.find(id);
    if (filament && filament->openedSpoolsCount() < filament->spoolsCount())
        changeOpened(m_context, *filament, addOpenedSpoolText, 1);
}

void SpoolActions::removeOpenedSpool(FilamentId id)
{
    Filament* filament = m_context.find(id);
    if (filament && filament->openedSpoolsCount() >= 1)
        changeOpened(m_context, *filament, removeOpenedSpoolText, -1);
}

void SpoolActions::duplicateFilament(FilamentId id)
{
    if (const FilamentId copy = reelhouse::duplicateFilament(m_context, id))
        emit detailRequested(copy);
}

} // namespace reelhouse
