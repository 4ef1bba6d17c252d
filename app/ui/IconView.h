#pragma once

#include "app/ui/Theme.h"

#include <QtGui/QIcon>
#include <QtWidgets/QWidget>

namespace reelhouse {

/// Shows one icon, bare or centred on a rounded tile. Decoration: assistive technology does not
/// see it as more than an area, so its meaning must also stand in a text.
class IconView final : public QWidget {
    Q_OBJECT

public:
    /// A bare icon, `side` pixels wide.
    IconView(const QIcon& icon, int side, QWidget* parent = nullptr);

    void setIcon(const QIcon& icon);
    /// Puts the icon on a square tile.
    void setTile(int side, qreal radius, ColorRole ground);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QIcon m_icon;
    int m_side;
    int m_tileSide = 0; ///< 0: no tile.
    qreal m_tileRadius = 0;
    ColorRole m_tileGround = nullptr;
};

} // namespace reelhouse
