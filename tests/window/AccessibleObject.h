#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusObjectPath>

#include <functional>
#include <optional>

namespace reelhouse::tests {

/// Where an object of a program is reached on the accessibility bus.
struct AccessibleAddress {
    QString service;
    QDBusObjectPath path;
};

QDBusArgument& operator<<(QDBusArgument& argument, const AccessibleAddress& address);
const QDBusArgument& operator>>(const QDBusArgument& argument, AccessibleAddress& address);

/// By their numbers in the protocol.
enum class AccessibleState {
    Active = 1,
    Checked = 4,
    Enabled = 8,
    Focusable = 11,
    Focused = 12,
    Selected = 23,
    Showing = 25,
    Visible = 30,
};

/// One object as assistive technology sees it at one moment, with what lies in it.
struct AccessibleObject {
    AccessibleAddress address;
    QString role; ///< Its English name in the protocol: "push button", "spin box", …
    QString name;
    QString description;
    QString label; ///< What the label in front of it says, where it has no callable name itself.
    quint64 states = 0;
    QList<AccessibleObject> children;

    bool is(AccessibleState state) const { return (states >> int(state) & 1) != 0; }
    /// What can be seen of it now is not nothing.
    bool isShown() const { return is(AccessibleState::Showing) && is(AccessibleState::Visible); }
    /// By which it can be called. A picker's own name is only the choice that it shows.
    QString callableName() const;

    /// Itself and all that lies in it, in reading order.
    void forEach(const std::function<void(const AccessibleObject&)>& visit) const;
    /// The same of what is shown. The rows of a hidden list say that they are shown, and are not.
    void forEachShown(const std::function<void(const AccessibleObject&)>& visit) const;
    /// The first shown one with this role and callable name.
    std::optional<AccessibleObject> find(const QString& wantedRole, const QString& wanted) const;
    /// All shown ones with this role.
    QList<AccessibleObject> all(const QString& wantedRole) const;
};

} // namespace reelhouse::tests

Q_DECLARE_METATYPE(reelhouse::tests::AccessibleAddress)
