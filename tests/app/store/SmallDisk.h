#pragma once

#include <QtCore/QStringList>

#include <functional>
#include <optional>

namespace reelhouse::tests {

/// Runs `work` in a process of its own, for which `folder` is an empty disk of `kilobytes`, and
/// returns its answer. Nothing where the system does not let the user mount one.
std::optional<QStringList> onSmallDisk(
    const QString& folder, int kilobytes, const std::function<QStringList()>& work);

} // namespace reelhouse::tests
