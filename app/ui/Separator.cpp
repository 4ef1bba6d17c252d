#include "app/ui/Separator.h"

#include "app/ui/Theme.h"

#include <QtGui/QPainter>

namespace reelhouse {

Separator::Separator(QWidget* parent)
    : QWidget(parent)
{
    setFixedHeight(1);
}

void Separator::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), currentTheme().hairline);
}

} // namespace reelhouse
