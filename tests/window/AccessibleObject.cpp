#include "tests/window/AccessibleObject.h"

using namespace Qt::StringLiterals;

namespace reelhouse::tests {

QDBusArgument& operator<<(QDBusArgument& argument, const AccessibleAddress& address)
{
    argument.beginStructure();
    argument << address.service << address.path;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, AccessibleAddress& address)
{
    argument.beginStructure();
    argument >> address.service >> address.path;
    argument.endStructure();
    return argument;
}

QString AccessibleObject::callableName() const
{
    const QString own = role == u"combo box"_s ? QString() : name;
    return (own.isEmpty() ? label : own).trimmed();
}

void AccessibleObject::forEach(const std::function<void(const AccessibleObject&)>& visit) const
{
    visit(*this);
    for (const AccessibleObject& child : children)
        child.forEach(visit);
}

void AccessibleObject::forEachShown(const std::function<void(const AccessibleObject&)>& visit) const
{
    if (!isShown())
        return;
    visit(*this);
    for (const AccessibleObject& child : children)
        child.forEachShown(visit);
}

std::optional<AccessibleObject> AccessibleObject::find(
    const QString& wantedRole, const QString& wanted) const
{
    std::optional<AccessibleObject> found;
    forEachShown([&](const AccessibleObject& object) {
        if (!found && object.role == wantedRole && object.callableName() == wanted)
            found = object;
    });
    return found;
}

QList<AccessibleObject> AccessibleObject::all(const QString& wantedRole) const
{
    QList<AccessibleObject> found;
    forEachShown([&](const AccessibleObject& object) {
        if (object.role == wantedRole)
            found += object;
    });
    return found;
}

} // namespace reelhouse::tests
