#include "app/ui/PlainToolTip.h"

#include <QtGui/QTextDocument>

namespace reelhouse {

QString plainToolTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text;
}

} // namespace reelhouse
