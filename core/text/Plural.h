#pragma once

#include <QtCore/QString>

namespace reelhouse {

/// `noun` with an "s" when `count` asks for one: in French the plural starts at 2.
QString agreeing(qint64 count, const QString& noun);

/// "0 bobine", "1 bobine", "2 bobines".
QString counted(qint64 count, const QString& noun);

} // namespace reelhouse
