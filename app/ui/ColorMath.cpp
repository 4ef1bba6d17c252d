#include "app/ui/ColorMath.h"

#include <algorithm>
#include <cmath>

namespace reelhouse {

namespace {

qreal linearised(qreal channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

qreal luminance(const QColor& color)
{
    return 0.2126 * linearised(color.redF()) + 0.7152 * linearised(color.greenF())
        + 0.0722 * linearised(color.blueF());
}

} // namespace

QColor blended(const QColor& over, const QColor& ground)
{
    const float alpha = over.alphaF();
    const auto mixed
        = [alpha](float top, float below) { return alpha * top + (1 - alpha) * below; };
    return QColor::fromRgbF(mixed(over.redF(), ground.redF()),
        mixed(over.greenF(), ground.greenF()), mixed(over.blueF(), ground.blueF()));
}

QColor faded(QColor color, qreal factor)
{
    color.setAlphaF(static_cast<float>(color.alphaF() * factor));
    return color;
}

qreal contrastRatio(const QColor& one, const QColor& other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace reelhouse
