#include "app/library/MenuTitle.h"

#include "core/text/Graphemes.h"

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr qsizetype longestMenuTitle = 60;

} // namespace

QString menuTitle(const QString& name)
{
    const QString line = name.simplified();
    QString title = firstGraphemes(line, longestMenuTitle).toString();
    if (title.size() < line.size())
        title += u'…';
    return title.replace(u'&', u"&&"_s);
}

} // namespace reelhouse
