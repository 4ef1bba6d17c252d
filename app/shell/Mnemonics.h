#pragma once

#include <QtCore/QString>

class QMenu;

namespace reelhouse {

/// Gives each entry of `menu` in its order, separators left out, the letter of `letters` that
/// chooses it while the menu is open. A blank leaves an entry as it is.
void setMnemonics(QMenu& menu, const QString& letters);

} // namespace reelhouse
