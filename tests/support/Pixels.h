#pragma once

#include <QtGui/QColor>
#include <QtGui/QImage>

#include <cstdlib>

namespace reelhouse::tests {

/// How many pixels of `area` have that colour, give or take what rounding makes of it.
inline int pixelsLike(const QImage& picture, const QRect& area, const QColor& color)
{
    const auto isNear = [](int one, int other) { return std::abs(one - other) <= 1; };
    int found = 0;
    const QRect inside = area & picture.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            if (isNear(pixel.red(), color.red()) && isNear(pixel.green(), color.green())
                && isNear(pixel.blue(), color.blue()))
                ++found;
        }
    }
    return found;
}

} // namespace reelhouse::tests
