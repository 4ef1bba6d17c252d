#pragma once

#include <QtCore/QString>

namespace reelhouse {

/// `name` as the title of a menu entry: on one line, cut with "…" after 60 characters, with nothing
/// in it taken for an access key or a shortcut.
QString menuTitle(const QString& name);
/// The whole of `name` where its title in a menu is cut; else empty.
QString menuToolTip(const QString& name);

} // namespace reelhouse
