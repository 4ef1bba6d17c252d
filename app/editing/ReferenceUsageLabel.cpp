#include "app/editing/ReferenceUsageLabel.h"

#include "app/ui/TextStyle.h"
#include "app/ui/Theme.h"
#include "core/text/Plural.h"

#include <QtGui/QPainter>

using namespace Qt::StringLiterals;

namespace reelhouse::ReferenceUsageLabel {

QString text(qint64 filamentCount, qint64 spoolCount)
{
    return counted(filamentCount, u"filament"_s) + u" · "_s + counted(spoolCount, u"bobine"_s);
}

int height()
{
    return QFontMetrics(fontOf(TextStyle::Caption)).height();
}

void paint(QPainter& painter, const QRect& rect, qint64 filamentCount, qint64 spoolCount)
{
    painter.setFont(fontOf(TextStyle::Caption));
    painter.setPen(currentTheme().textSecondary);
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
        painter.fontMetrics().elidedText(
            text(filamentCount, spoolCount), Qt::ElideRight, rect.width()));
}

} // namespace reelhouse::ReferenceUsageLabel
