#pragma once

#include "core/Result.h"
#include "core/interchange/ExportData.h"

#include <QtCore/QDateTime>

namespace reelhouse {

class StoreContainer;

/// The two stages of an import. Errors are French sentences, shown as they are.
namespace StockImport {

/// The longest document that is read, in bytes: 1 GiB.
inline constexpr qint64 largestDocument = qint64{1} << 30;

/// First stage: reads the file and holds it to every rule. Touches no stock; for any thread.
Result<ExportData, QString> readDocument(const QString& path);

/// Second stage: writes a safety backup, replaces the whole stock by a document that went through
/// the first, then deletes the oldest backups so that at most `keepBackups` remain. Returns the
/// path of the backup, or nothing for the temporary stock, which has none. When the backup fails
/// nothing was changed; when the save fails the context holds the new stock, the store still the
/// former one, and every backup is there.
Result<std::optional<QString>, QString> importIntoContext(
    StoreContainer& store, const ExportData& data, int keepBackups);

} // namespace StockImport

} // namespace reelhouse
