#pragma once

class QWidget;

namespace reelhouse {

/// Has a screen reader say what stands in `widget`, which has just appeared or changed.
void announce(QWidget* widget);

} // namespace reelhouse
