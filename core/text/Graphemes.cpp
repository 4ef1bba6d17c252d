#include "core/text/Graphemes.h"

#include <QtCore/QTextBoundaryFinder>

namespace reelhouse {

QStringView firstGraphemes(QStringView text, qsizetype count)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    for (qsizetype found = 0; found < count; ++found) {
        if (finder.toNextBoundary() < 0)
            return text;
    }
    return text.first(finder.position());
}

} // namespace reelhouse
