#pragma once

#include "app/store/StoreContainer.h"
#include "core/interchange/ExportData.h"

#include <QtCore/QStringList>

/// Stocks that are recognised as a whole after a crash: every filament bears the stock's name.
namespace reelhouse::tests {

ExportData stockOf(const QString& name, int filaments);

/// Null when the store cannot be opened.
std::unique_ptr<StoreContainer> openStock(const QString& path);

/// "Rouge 3000" when all filaments are of one stock made by stockOf; else what is wrong.
QString pictureOfOneStock(StoreContainer* stock);

/// The names of the backups in `folder` that cannot be imported.
QStringList unreadableBackups(const QString& folder);

} // namespace reelhouse::tests
