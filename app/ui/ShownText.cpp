#include "app/ui/ShownText.h"

#include <QtCore/QStringBuilder>

namespace reelhouse {

namespace {

constexpr qsizetype shownBeginning = 400;
constexpr qsizetype shownEnd = 200; ///< How the sentence goes on after the name.

} // namespace

QString shownText(const QString& text)
{
    if (text.size() <= shownBeginning + shownEnd)
        return text;
    QStringView beginning = QStringView(text).first(shownBeginning);
    QStringView end = QStringView(text).last(shownEnd);
    if (beginning.back().isHighSurrogate())
        beginning.chop(1);
    if (end.front().isLowSurrogate())
        end = end.sliced(1);
    return beginning % u'…' % end;
}

} // namespace reelhouse
