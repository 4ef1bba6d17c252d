#pragma once

namespace reelhouse {

/// Whether a translucent window shows what lies behind it at this moment: always on Wayland, on X11
/// while a compositing manager runs. Where it is false such a window has black corners.
bool windowsAreComposited();

} // namespace reelhouse
