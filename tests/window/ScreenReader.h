#pragma once

#include "tests/window/AccessibleObject.h"

#include <QtCore/QObject>
#include <QtCore/QProcess>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>
#include <QtDBus/QDBusConnection>

class QDBusMessage;

namespace reelhouse::tests {

class TestHome;

/// A screen reader with a session bus and an accessibility bus of its own, for the programs of one
/// user. It reads what a program tells assistive technology and works its controls. The buses end
/// with the object.
class ScreenReader final : public QObject {
    Q_OBJECT

public:
    /// Programs that `home` gives their environment to from now on are on the buses.
    ScreenReader(TestHome& home, const QString& display);
    ~ScreenReader() override;

    /// Whether this machine has what the buses take.
    static bool isPossible();

    /// Everything that the program tells now; nothing when it is not on the bus.
    std::optional<AccessibleObject> read() const;
    /// The window of the program that has the keyboard; nothing when none has.
    std::optional<AccessibleObject> activeWindow() const;

    /// Does what a control is there for, as a click would. It does not wait for its effect.
    void press(const AccessibleObject& control) const;
    void setText(const AccessibleObject& field, const QString& text) const;
    /// "value of minimum to maximum", all three as whole numbers: "3 of 1 to 100".
    QString value(const AccessibleObject& control) const;

    /// The names that changed since the last call: what a screen reader says by itself.
    QStringList takeAnnouncements();
    bool waitForAnnouncement(const QString& text);

    /// What an object of a program on the session bus answers to a call without arguments.
    QStringList ask(const QString& service, const QString& question) const;

private slots:
    void hear(const QDBusMessage& message);

private:
    QString startSessionBus();
    void startAccessibilityBus(const TestHome& home, const QString& display);
    QDBusMessage call(const AccessibleAddress& object, const QString& interface,
        const QString& method, const QVariantList& arguments = {}) const;
    QVariant property(
        const AccessibleAddress& object, const QString& interface, const QString& name) const;
    AccessibleObject readObject(const AccessibleAddress& address) const;
    QString labelOf(const AccessibleAddress& address) const;
    QList<AccessibleAddress> childrenOf(const AccessibleAddress& address) const;

    QTemporaryDir m_folder;
    QProcess m_sessionBus;
    QProcess m_accessibilityBus;
    QDBusConnection m_session;
    QDBusConnection m_bus;
    QStringList m_announcements;
};

} // namespace reelhouse::tests
