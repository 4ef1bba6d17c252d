#include "core/text/Plural.h"

namespace reelhouse {

QString agreeing(qint64 count, const QString& noun)
{
    return count >= 2 ? noun + u's' : noun;
}

QString counted(qint64 count, const QString& noun)
{
    return QString::number(count) + u' ' + agreeing(count, noun);
}

} // namespace reelhouse
