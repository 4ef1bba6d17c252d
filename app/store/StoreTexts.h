#pragma once

#include <QtCore/QString>

namespace reelhouse {

/// What the failure screen, the store alert and the screens over a temporary stock share.
QString storeErrorTitle();
QString openDataFolderText();
QString temporaryStoreText();
/// That the latest changes are not on disk; `reason` is a French sentence.
QString unsavedText(const QString& reason);
/// Why a file of the store is neither read nor written where the user chose it.
QString belongsToStoreText();

} // namespace reelhouse
