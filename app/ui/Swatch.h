#pragma once

#include <QtGui/QColor>

namespace reelhouse {

/// Reads a colour code, in sRGB: without what is neither letter nor digit at both ends, six
/// characters are RGB and eight are ARGB, scanned as a hexadecimal number up to the first other
/// character. Never fails: any other length is opaque black.
QColor colorFromHex(const QString& text);

} // namespace reelhouse
