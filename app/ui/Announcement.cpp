#include "app/ui/Announcement.h"

#include <QtGui/QAccessible>

namespace reelhouse {

void announce(QWidget* widget)
{
    // Qt 6.4 passes alerts on to no screen reader on Linux, but names that change.
    for (const QAccessible::Event what : {QAccessible::Alert, QAccessible::NameChanged}) {
        QAccessibleEvent event(widget, what);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace reelhouse
