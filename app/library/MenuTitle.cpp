#include "app/library/MenuTitle.h"

#include "app/ui/PlainToolTip.h"
#include "core/text/Graphemes.h"

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr qsizetype longestMenuTitle = 60;

QStringView shownPart(const QString& line)
{
    return firstGraphemes(line, longestMenuTitle);
}

} // namespace

QString menuTitle(const QString& name)
{
    const QString line = name.simplified();
    QString title = shownPart(line).toString();
    if (title.size() < line.size())
        title += u'…';
    return title.replace(u'&', u"&&"_s);
}

QString menuToolTip(const QString& name)
{
    const QString line = name.simplified();
    return shownPart(line).size() < line.size() ? plainToolTip(name) : QString();
}

} // namespace reelhouse
