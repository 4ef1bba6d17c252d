#pragma once

#include <QtCore/QString>

namespace reelhouse {

/// What is shown of a text that may hold a name of any length: the whole, or of more than 600
/// letters its beginning and its end with "…" between. To lay out a name of 60,000 letters takes a
/// window and seconds.
QString shownText(const QString& text);

} // namespace reelhouse
