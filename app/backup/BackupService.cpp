#include "app/backup/BackupService.h"

#include "app/backup/BackupFolder.h"
#include "app/backup/StockDocument.h"
#include "app/store/DurableFiles.h"
#include "app/store/StoreContainer.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

std::filesystem::path systemPath(const QString& path)
{
    return QFile::encodeName(path).toStdString();
}

QString freeName(const QString& folder, QDateTime moment)
{
    while (true) {
        QString path
            = folder + u"/sauvegarde_"_s + moment.toString(u"yyyy-MM-dd_HHmmss_zzz"_s) + u".json"_s;
        if (!DurableFiles::isTaken(path))
            return path;
        moment = moment.addMSecs(1);
    }
}

void prune(const QString& folder, int keep, const QString& spared)
{
    const auto backups = BackupFolder::list(systemPath(folder));
    for (const auto& path : BackupFolder::superfluous(backups, keep, systemPath(spared))) {
        std::error_code passedOver;
        std::filesystem::remove(path, passedOver);
    }
}

} // namespace

QString BackupService::backupFolder(const StoreContainer& store)
{
    return QFileInfo(store.storeFile()).path() + u"/Backups"_s;
}

Result<std::optional<QString>, BackupError> BackupService::performBackup(
    StoreContainer& store, int keep, const QDateTime& now)
{
    if (store.usesMemoryStore())
        return std::optional<QString>();
    const auto document
        = StockDocument::encode(store.context(), StockDocument::FilamentOrder::Store);
    if (!document)
        return Failure{BackupError{.kind = BackupError::Kind::EncodingFailed}};
    const QString folder = backupFolder(store);
    const auto failed = [](const SystemError& error) {
        return Failure{BackupError{BackupError::Kind::WriteFailed, error.description()}};
    };
    if (const auto error = DurableFiles::makeFolder(folder))
        return failed(*error);
    const QString path = freeName(folder, now);
    if (const auto error = DurableFiles::write(path, *document))
        return failed(*error);
    prune(folder, keep, path);
    return std::optional(path);
}

void BackupService::pruneBackups(const StoreContainer& store, int keep)
{
    prune(backupFolder(store), keep, {});
}

int BackupService::storedBackupCount(const StoreContainer& store)
{
    return int(BackupFolder::list(systemPath(backupFolder(store))).size());
}

} // namespace reelhouse
