#include "app/library/FilamentSheets.h"

#include "app/editing/AddFilamentView.h"
#include "app/editing/FilamentDeletion.h"
#include "app/editing/FilamentDetailView.h"
#include "app/library/SpoolActions.h"
#include "core/model/StoreContext.h"

namespace reelhouse {

FilamentSheets::FilamentSheets(StoreContext& context, SpoolActions& actions, QWidget* screen)
    : QObject(screen)
    , m_context(context)
    , m_screen(screen)
{
    connect(&actions, &SpoolActions::additionRequested, this, &FilamentSheets::openAddition);
    connect(&actions, &SpoolActions::detailRequested, this, &FilamentSheets::openDetail);
    connect(&actions, &SpoolActions::deletionRequested, this,
        [this](FilamentId id) { askToDelete(m_context, id, m_screen); });
}

void FilamentSheets::openAddition()
{
    auto* sheet = new AddFilamentView(m_context, m_screen);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
}

void FilamentSheets::openDetail(FilamentId id)
{
    if (!m_context.find(id))
        return;
    auto* sheet = new FilamentDetailView(m_context, id, m_screen);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
}

} // namespace reelhouse
