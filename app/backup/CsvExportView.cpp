#include "app/backup/CsvExportView.h"

#include "app/backup/TransferTexts.h"
#include "app/store/StoreContainer.h"
#include "app/ui/FilePanels.h"
#include "core/csv/CsvExporter.h"
#include "core/model/NewestFirst.h"

#include <QtWidgets/QPushButton>

using namespace Qt::StringLiterals;

namespace reelhouse {

CsvExportView::CsvExportView(StoreContainer& container, QWidget* parent)
    : TransferScreen(u"tablecells"_s, u"Export CSV"_s,
        u"Exportez votre stock de filaments\nau format CSV, compatible tableurs (Excel, Numbers…)."_s,
        {{u"tablecells"_s, u"Exporter"_s}}, parent)
    , m_container(container)
{
    connect(button(0), &QPushButton::clicked, this, &CsvExportView::exportStock);
}

void CsvExportView::exportStock()
{
    if (isBusy())
        return;
    const auto table
        = CsvExporter::encoded(CsvExporter::stockCSV(newestFirst(m_container.context())));
    if (!table) {
        showError(u"Erreur lors de la création du fichier."_s);
        return;
    }
    FilePanels::openSavePanel(this, u"Exporter le stock en CSV"_s, {u"Tableaux CSV"_s, u"csv"_s},
        TransferTexts::proposedFileName(u"csv"_s),
        [this, bytes = *table](const QString& path) { writeFile(path, bytes, m_container); });
}

} // namespace reelhouse
