#include "app/backup/ExportImportView.h"

#include "app/backup/BackgroundWork.h"
#include "app/backup/BackupService.h"
#include "app/backup/StockDocument.h"
#include "app/backup/StockImport.h"
#include "app/backup/TransferTexts.h"
#include "app/store/StoreCompanions.h"
#include "app/store/StoreContainer.h"
#include "app/store/StoreTexts.h"
#include "app/ui/Alert.h"
#include "app/ui/FilePanels.h"
#include "core/preferences/Preferences.h"

#include <QtCore/QTimer>
#include <QtWidgets/QPushButton>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace reelhouse {

namespace {

FilePanels::FileKind jsonKind()
{
    return {u"Documents JSON"_s, u"json"_s};
}

} // namespace

ExportImportView::ExportImportView(
    StoreContainer& container, const Preferences& preferences, QWidget* parent)
    : TransferScreen(u"square.and.arrow.down.on.square"_s, u"Export et Import"_s,
        u"Sauvegardez ou restaurez l'intégralité\nde votre stock de filaments au format JSON."_s,
        {{u"square.and.arrow.up"_s, u"Exporter"_s}, {u"square.and.arrow.down"_s, u"Importer"_s}},
        parent)
    , m_container(container)
    , m_preferences(preferences)
{
    connect(button(0), &QPushButton::clicked, this, &ExportImportView::exportStock);
    connect(button(1), &QPushButton::clicked, this, &ExportImportView::chooseDocument);
}

void ExportImportView::exportStock()
{
    if (isBusy())
        return;
    const auto document
        = StockDocument::encode(m_container.context(), StockDocument::FilamentOrder::NewestFirst);
    if (!document) {
        showError(u"Erreur lors de l'encodage des données."_s);
        return;
    }
    FilePanels::openSavePanel(this, u"Exporter le stock"_s, jsonKind(),
        TransferTexts::proposedFileName(u"json"_s),
        [this, bytes = *document](const QString& path) { writeFile(path, bytes, m_container); });
}

void ExportImportView::chooseDocument()
{
    if (isBusy())
        return;
    FilePanels::openOpenPanel(this, u"Importer le stock"_s, jsonKind(),
        BackupService::backupFolder(m_container),
        [this](const QString& path) { importFile(path); });
}

void ExportImportView::importFile(const QString& path)
{
    if (isBusy())
        return;
    if (belongsToStore(path, m_container.storeFile()))
        return showError(TransferTexts::importFailed(belongsToStoreText()));
    beginProgress(u"Lecture du fichier…"_s);
    runInBackground(
        this, [path] { return StockImport::readDocument(path); },
        [this](Result<ExportData, QString> read) {
            if (!read) {
                showError(TransferTexts::importFailed(read.error()));
                return;
            }
            endProgress();
            confirm(std::make_shared<const ExportData>(std::move(read.value())));
        });
}

void ExportImportView::confirm(const std::shared_ptr<const ExportData>& pending)
{
    askBeforeDestroying(u"Effacer les données existantes ?"_s,
        u"L'import va effacer toutes les données actuelles (types, marques, gammes, lieux et "
        "filaments) et les remplacer par celles du fichier. Cette action est irréversible."_s,
        u"Importer et tout remplacer"_s, this, [this, pending] {
            beginProgress(u"Import en cours…"_s);
            // Once the alert is gone the line is painted, then the window stands still for the
            // import.
            QTimer::singleShot(0ms, this, [this, pending] {
                window()->repaint();
                replaceStock(*pending);
            });
        });
}

void ExportImportView::replaceStock(const ExportData& document)
{
    const auto imported
        = StockImport::importIntoContext(m_container, document, m_preferences.maxBackups());
    if (!imported)
        showError(TransferTexts::importFailed(imported.error()));
    else
        showSuccess(TransferTexts::imported(
            qint64(document.filaments.size()), imported.value().has_value()));
}

} // namespace reelhouse
