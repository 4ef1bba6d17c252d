#pragma once

#include <QtCore/QString>

namespace reelhouse {

/// Copies the older store and its companions to `store`, when there is an older store and the name
/// `store` is free. Does it wholly or not at all, even when the computer stops in between; what
/// fails is passed over in silence. The older folder is only read.
void carryOverOlderStore(const QString& olderStore, const QString& store);

} // namespace reelhouse
