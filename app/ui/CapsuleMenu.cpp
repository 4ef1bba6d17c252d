#include "app/ui/CapsuleMenu.h"

#include "app/ui/CapsuleButton.h"

#include <QtGui/QScreen>

#include <algorithm>

namespace reelhouse {

CapsuleMenu::CapsuleMenu(CapsuleButton* capsule, Alignment alignment)
    : QMenu(capsule)
    , m_capsule(*capsule)
    , m_alignment(alignment)
{
}

void CapsuleMenu::showEvent(QShowEvent* event)
{
    // The button has put it where it touches the capsule.
    const QRect capsule(m_capsule.mapToGlobal(QPoint()), m_capsule.size());
    const QRect screen = m_capsule.screen()->availableGeometry();
    QRect place(pos(), size());
    const int wanted
        = m_alignment == Alignment::Left ? capsule.left() : capsule.right() + 1 - width();
    place.moveLeft(std::max(std::min(wanted, screen.right() + 1 - width()), screen.left()));
    const int below = capsule.bottom() + 1 + gap;
    const int above = capsule.top() - gap - height();
    if (place.top() > capsule.center().y() && below + height() <= screen.bottom() + 1)
        place.moveTop(below);
    else if (place.bottom() < capsule.center().y() && above >= screen.top())
        place.moveTop(above);
    move(place.topLeft());
    QMenu::showEvent(event);
}

} // namespace reelhouse
