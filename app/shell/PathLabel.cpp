#include "app/shell/PathLabel.h"

#include "app/ui/PlainToolTip.h"
#include "app/ui/TextStyle.h"

#include <QtGui/QPainter>

namespace reelhouse {

PathLabel::PathLabel(const QString& path, QWidget* parent)
    : QLabel(path, parent)
{
    setTextStyle(this, TextStyle::Code);
    setTextFormat(Qt::PlainText);
    setToolTip(plainToolTip(path));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

QSize PathLabel::minimumSizeHint() const
{
    return {0, QLabel::minimumSizeHint().height()};
}

void PathLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
        fontMetrics().elidedText(text(), Qt::ElideMiddle, width()));
}

} // namespace reelhouse
