#pragma once

#include <QtCore/QString>

namespace reelhouse {

/// What the failure screen and the store alert both say.
QString storeErrorTitle();
QString openDataFolderText();

} // namespace reelhouse
