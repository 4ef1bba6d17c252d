#pragma once

#include <QtCore/QMargins>
#include <QtCore/QRect>

namespace reelhouse::WindowPlacement {

inline constexpr QSize defaultSize{1300, 850};
inline constexpr QSize minimumContent{1100, 800};

/// The window's own rectangle, without its decoration, so that the decorated window is centred in
/// `available` and leaves at least 20 to each of its edges. `size` is shrunk where it must be,
/// never grown. Empty when `available` is empty.
QRect centred(QSize size, const QMargins& decoration, const QRect& available);

/// The smallest content that the window lets itself be shrunk to: 1100 × 800, less where the
/// decorated window with `chrome` around the content (its menu bar) would not fit into `available`
/// with 20 to each edge.
QSize minimumContentSize(const QMargins& decoration, QSize chrome, const QRect& available);

/// Whether the user can work a window whose decorated rectangle is `frame`: it is no larger than
/// `available`, and part of its upper edge, by which it is moved, lies there.
bool isReachable(const QRect& frame, const QRect& available);

} // namespace reelhouse::WindowPlacement
