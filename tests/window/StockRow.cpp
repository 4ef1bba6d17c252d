#include "tests/window/StockRow.h"

#include "tests/support/Screen.h"
#include "tests/support/Waiting.h"

#include <QtCore/QHash>

#include <algorithm>

namespace reelhouse::tests {

namespace {

constexpr std::chrono::milliseconds rest(250);

/// The smallest rectangle that holds every point of `area` for which `holds` is true.
template <typename Condition>
QRect bounds(const QRect& area, Condition holds)
{
    QRect found;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (holds(x, y))
                found |= QRect(x, y, 1, 1);
        }
    }
    return found;
}

QRgb commonestColor(const QImage& picture, const QRect& area)
{
    QHash<QRgb, int> counts;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    const auto commonest = std::max_element(counts.cbegin(), counts.cend());
    return commonest == counts.cend() ? 0 : commonest.key();
}

} // namespace

std::optional<StockRow> StockRow::hover(Screen& screen, const QPoint& position, const QPoint& away)
{
    screen.movePointer(away);
    screen.waitForRest(screen.area(), rest);
    const QImage before = screen.picture(screen.area());
    screen.movePointer(position);
    screen.waitForRest(screen.area(), rest);
    const QImage after = screen.picture(screen.area());

    const QRect row = bounds(
        screen.area(), [&](int x, int y) { return before.pixel(x, y) != after.pixel(x, y); });
    const QRect inner = row.adjusted(16, 6, -16, -6); // Without its round corners.
    if (!inner.isValid())
        return std::nullopt;
    // What stands where the list was bare, and is not the row's new ground: the two buttons.
    const QRgb bare = commonestColor(before, row);
    const QRgb ground = commonestColor(after, row);
    const QRect buttons = bounds(inner,
        [&](int x, int y) { return before.pixel(x, y) == bare && after.pixel(x, y) != ground; });
    if (buttons.width() < 20 || buttons.width() > 100)
        return std::nullopt;

    StockRow found;
    found.minus = {buttons.left() + buttons.width() / 5, buttons.center().y()};
    found.plus = {buttons.right() - buttons.width() / 5, buttons.center().y()};
    found.count = QRect(buttons.left() - 160, row.top(), 150, row.height());
    return found;
}

} // namespace reelhouse::tests
