#include "app/shell/WindowPlacement.h"

namespace reelhouse::WindowPlacement {

namespace {

constexpr int margin = 20;

QSize largestSize(const QMargins& decoration, const QRect& available)
{
    return available.size().shrunkBy(decoration).shrunkBy({margin, margin, margin, margin});
}

} // namespace

QRect centred(QSize size, const QMargins& decoration, const QRect& available)
{
    if (available.isEmpty())
        return {};
    const QSize fitting = size.boundedTo(largestSize(decoration, available));
    QRect frame({}, fitting.grownBy(decoration));
    frame.moveLeft(available.left() + (available.width() - frame.width()) / 2);
    frame.moveTop(available.top() + (available.height() - frame.height()) / 2);
    return frame.marginsRemoved(decoration);
}

QSize minimumContentSize(const QMargins& decoration, QSize chrome, const QRect& available)
{
    if (available.isEmpty())
        return minimumContent;
    return minimumContent.boundedTo(largestSize(decoration, available) - chrome)
        .expandedTo(QSize(0, 0));
}

bool isReachable(const QRect& frame, const QRect& available)
{
    const QRect upperEdge(frame.left(), frame.top(), frame.width(), 1);
    return frame.width() <= available.width() && frame.height() <= available.height()
        && available.intersects(upperEdge);
}

} // namespace reelhouse::WindowPlacement
