#pragma once

#include <QtCore/QMargins>

class QWindow;

namespace reelhouse {

/// What the window manager draws around `window`, in logical pixels. For a window that was not
/// mapped yet the manager is asked what it intends (X11, _NET_REQUEST_FRAME_EXTENTS), for at most a
/// few hundredths of a second. Empty where nobody tells: no manager, or Wayland.
QMargins decorationOf(QWindow& window);

} // namespace reelhouse
