#include "app/backup/StockImport.h"

#include "app/backup/BackupService.h"
#include "app/backup/StockDocument.h"
#include "app/store/StoreContainer.h"
#include "app/store/UserFiles.h"
#include "core/interchange/DocumentReader.h"

namespace reelhouse {

Result<ExportData, QString> StockImport::readDocument(const QString& path)
{
    auto bytes = UserFiles::read(path, largestDocument);
    if (!bytes)
        return Failure{bytes.error().description()};
    auto data = decodeDocument(std::move(bytes.value()));
    if (!data)
        return Failure{data.error().description()};
    if (const auto error = data.value().validate())
        return Failure{error->description()};
    return std::move(data.value());
}

Result<std::optional<QString>, QString> StockImport::importIntoContext(
    StoreContainer& store, const ExportData& data, int keepBackups)
{
    auto backup = BackupService::writeBackup(store);
    if (!backup)
        return Failure{backup.error().description()};
    if (const auto error = StockDocument::replaceStock(store.context(), data))
        return Failure{error->description()};
    // Only now: the document may come from the oldest backup, which was the one place where it was.
    if (const auto& path = backup.value())
        BackupService::pruneBackups(store, keepBackups, *path);
    return std::move(backup.value());
}

} // namespace reelhouse
