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

QString nameAfter(const QDateTime& moment)
{
    return u"sauvegarde_"_s + moment.toString(u"yyyy-MM-dd_HHmmss_zzz"_s) + u".json"_s;
}

} // namespace

QString BackupService::backupFolder(const StoreContainer& store)
{
    return QFileInfo(store.storeFile()).path() + u"/Backups"_s;
}

Result<std::optional<QString>, BackupError> BackupService::writeBackup(
    StoreContainer& store, const QDateTime& now)
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
    const auto nameOf = [&now](int attempt) { return nameAfter(now.addMSecs(attempt)); };
    const auto path = DurableFiles::write(folder, nameOf, *document);
    if (!path)
        return failed(path.error());
    return std::optional(path.value());
}

Result<std::optional<QString>, BackupError> BackupService::performBackup(
    StoreContainer& store, int keep, const QDateTime& now)
{
    auto path = writeBackup(store, now);
    if (path && path.value())
        pruneBackups(store, keep, *path.value());
    return path;
}

void BackupService::pruneBackups(const StoreContainer& store, int keep, const QString& spared)
{
    const auto backups = BackupFolder::list(systemPath(backupFolder(store)));
    for (const auto& path : BackupFolder::superfluous(backups, keep, systemPath(spared))) {
        std::error_code passedOver;
        std::filesystem::remove(path, passedOver);
    }
}

int BackupService::storedBackupCount(const StoreContainer& store)
{
    return int(BackupFolder::list(systemPath(backupFolder(store))).size());
}

} // namespace reelhouse
