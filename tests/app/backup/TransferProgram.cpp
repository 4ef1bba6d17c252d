#include "app/backup/BackupService.h"
#include "app/backup/StockImport.h"
#include "tests/app/backup/OneStock.h"

#include <QtCore/QCoreApplication>

using namespace reelhouse;

/// transfer-program STORE            backs the stock up, keeping three backups
/// transfer-program STORE DOCUMENT   imports the document, keeping three backups
/// The exit status is 0 when that was done.
int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    constexpr int keptBackups = 3;
    const auto stock = tests::openStock(arguments.value(1));
    if (!stock)
        return 1;
    if (arguments.size() == 2)
        return BackupService::performBackup(*stock, keptBackups) ? 0 : 1;
    const auto document = StockImport::readDocument(arguments.value(2));
    if (!document)
        return 1;
    return StockImport::importIntoContext(*stock, document.value(), keptBackups) ? 0 : 1;
}
