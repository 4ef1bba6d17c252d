#pragma once

#include <QtCore/QDeadlineTimer>

#include <chrono>
#include <thread>

namespace reelhouse::tests {

/// Asks until `condition` holds; false when it does not within `limit`.
template <typename Condition>
bool waitUntil(Condition condition, std::chrono::milliseconds limit = std::chrono::seconds(20))
{
    const QDeadlineTimer deadline(limit);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

} // namespace reelhouse::tests
