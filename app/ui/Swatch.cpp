#include "app/ui/Swatch.h"

namespace reelhouse {

QColor colorFromHex(const QString& text)
{
    return QColor::fromString(text);
}

} // namespace reelhouse
