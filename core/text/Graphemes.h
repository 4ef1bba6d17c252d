#pragma once

#include <QtCore/QString>

namespace reelhouse {

/// The first `count` characters of `text` as a reader counts them: a letter with its accents, or an
/// emoji of several parts, is one.
QStringView firstGraphemes(QStringView text, qsizetype count);

} // namespace reelhouse
