#pragma once

#include <QtGui/QAccessible>

namespace reelhouse::tests {

/// What assistive technology is told of an object.
inline QAccessible::Role spokenRole(QObject* object)
{
    return QAccessible::queryAccessibleInterface(object)->role();
}

inline QString spokenName(QObject* object)
{
    return QAccessible::queryAccessibleInterface(object)->text(QAccessible::Name);
}

inline QString spokenDescription(QObject* object)
{
    return QAccessible::queryAccessibleInterface(object)->text(QAccessible::Description);
}

} // namespace reelhouse::tests
