#pragma once

#include <functional>

class QAbstractItemView;
class QContextMenuEvent;
class QMenu;

namespace reelhouse {

/// Selects the item under the pointer, or the current one where a key asked for the menu, and opens
/// the menu that `fill` fills. Beside the items nothing happens.
void openItemMenu(QAbstractItemView& view, const QContextMenuEvent& event,
    const std::function<void(QMenu&)>& fill);

} // namespace reelhouse
