#pragma once

#include <QtCore/QString>

namespace reelhouse {

/// `text` for a tool tip that shows it as it is, also when the toolkit would take it for markup.
QString plainToolTip(const QString& text);

} // namespace reelhouse
