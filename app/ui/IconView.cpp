#include "app/ui/IconView.h"

#include "app/ui/RoundedPanel.h"

#include <QtGui/QPainter>

#include <algorithm>

namespace reelhouse {

IconView::IconView(const QIcon& icon, int side, QWidget* parent)
    : QWidget(parent)
    , m_icon(icon)
    , m_side(side)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void IconView::setIcon(const QIcon& icon)
{
    m_icon = icon;
    update();
}

void IconView::setTile(int side, qreal radius, ColorRole ground)
{
    m_tileSide = side;
    m_tileRadius = radius;
    m_tileGround = ground;
    updateGeometry();
    update();
}

QSize IconView::sizeHint() const
{
    const int side = std::max(m_side, m_tileSide);
    return {side, side};
}

void IconView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const auto centred = [this](int side) {
        return QRect((width() - side) / 2, (height() - side) / 2, side, side);
    };
    if (m_tileGround != nullptr)
        paintRoundedPanel(painter, centred(m_tileSide), m_tileRadius, currentTheme().*m_tileGround);
    m_icon.paint(
        &painter, centred(m_side), Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
}

} // namespace reelhouse
