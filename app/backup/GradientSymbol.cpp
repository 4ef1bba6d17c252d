#include "app/backup/GradientSymbol.h"

#include "app/ui/Symbol.h"
#include "app/ui/Theme.h"

#include <QtGui/QPainter>

namespace reelhouse {

GradientSymbol::GradientSymbol(QString symbol, int side, QWidget* parent)
    : QWidget(parent)
    , m_symbol(std::move(symbol))
{
    setFixedSize(side, side);
}

void GradientSymbol::paintEvent(QPaintEvent*)
{
    const qreal ratio = devicePixelRatioF();
    QPixmap pixmap(size() * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QLinearGradient gradient(rect().topLeft(), rect().bottomRight());
    gradient.setColorAt(0, currentTheme().gradientStart);
    gradient.setColorAt(1, currentTheme().gradientEnd);
    QPainter painter(&pixmap);
    paintSymbol(painter, rect(), m_symbol, currentTheme().gradientStart);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(rect(), gradient);
    painter.end();
    QPainter(this).drawPixmap(0, 0, pixmap);
}

} // namespace reelhouse
