#pragma once

#include "app/store/StoreContainer.h"

#include <QtCore/QMap>

#include <optional>

struct sqlite3;

namespace reelhouse::tests {

/// Opens and loads the store file as the program does.
Result<std::unique_ptr<StoreContainer>, StoreError> openStore(const QString& path);

/// Why the store file cannot be used; empty when it can.
QString refusal(const QString& path);

/// The whole stock as text, one line an entity: filaments as "id|spools|opened|code|colour|notes|
/// dateMs|type|brand|range|location" with the references' names, the others as "id|name".
QStringList linesOf(StoreContext& context);

/// Runs SQL on a database file with SQLite alone, in its own connection; fails the test on errors.
void runSql(const QString& path, const QString& sql);
/// The first column of the first row.
QString askSql(const QString& path, const QString& sql);

/// Makes a store file with one type, one brand and two filaments through the program's own code.
void makeSmallStore(const QString& path);

/// What `linesOf` says of the store of makeSmallStore.
QStringList smallStoreLines();

/// Every entry below a folder by its relative path, with its kind, time of the last change, length
/// and a digest of its bytes: equal when nothing was touched.
QMap<QString, QByteArray> snapshotOf(const QString& folder);

QByteArray bytesOf(const QString& path);
void writeBytes(const QString& path, const QByteArray& bytes);

} // namespace reelhouse::tests
