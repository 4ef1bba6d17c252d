#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>

namespace reelhouse {

class StoreContainer;

/// What the export screens say.
namespace TransferTexts {

/// "stock_filaments_2025-03-14_092653.json", by the local clock.
QString proposedFileName(
    const QString& suffix, const QDateTime& now = QDateTime::currentDateTime());

QString exporting();
/// Counts the filaments of the stock as it is now.
QString exported(const StoreContainer& container);
/// `reason` is a French sentence.
QString writeFailed(const QString& reason);
/// For who has left the screen: names the file.
QString exportFailed(const QString& path);

QString imported(qint64 filaments, bool isBackedUp);
/// `reason` is a French sentence.
QString importFailed(const QString& reason);

} // namespace TransferTexts

} // namespace reelhouse
