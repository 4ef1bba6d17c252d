#include "tests/window/ScreenReader.h"

#include "tests/support/Waiting.h"
#include "tests/window/TestHome.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QStandardPaths>
#include <QtDBus/QDBusConnectionInterface>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusPendingReply>
#include <QtDBus/QDBusVariant>

#include <array>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace reelhouse::tests {

namespace {

const QString accessible = u"org.a11y.atspi.Accessible"_s;
const QString properties = u"org.freedesktop.DBus.Properties"_s;
constexpr uint labelledBy = 2; ///< The number of this relation in the protocol.

/// A bus for everybody of this user, on which nothing is started by asking for it.
constexpr const char* sessionBusConfiguration = R"xml(
<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=/tmp</listen>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)xml";

QString accessibilityBusLauncher()
{
    return QStandardPaths::findExecutable(
        u"at-spi-bus-launcher"_s, {u"/usr/libexec"_s, u"/usr/lib/at-spi2-core"_s});
}

} // namespace

ScreenReader::ScreenReader(TestHome& home, const QString& display)
    : m_session(QString())
    , m_bus(QString())
{
    qDBusRegisterMetaType<AccessibleAddress>();
    qDBusRegisterMetaType<QList<AccessibleAddress>>();
    const QString address = startSessionBus();
    home.setVariable(u"DBUS_SESSION_BUS_ADDRESS"_s, address);
    home.setVariable(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s, u"1"_s);
    m_session = QDBusConnection::connectToBus(address, u"session "_s + address);
    if (!m_session.isConnected())
        qFatal("The session bus does not answer.");
    startAccessibilityBus(home, display);
}

ScreenReader::~ScreenReader()
{
    for (const QDBusConnection* bus : {&m_session, &m_bus})
        QDBusConnection::disconnectFromBus(bus->name());
    for (QProcess* process : {&m_accessibilityBus, &m_sessionBus}) {
        process->terminate();
        process->waitForFinished(5000);
    }
}

bool ScreenReader::isPossible()
{
    return !accessibilityBusLauncher().isEmpty()
        && !QStandardPaths::findExecutable(u"dbus-daemon"_s).isEmpty();
}

QString ScreenReader::startSessionBus()
{
    const QString configuration = m_folder.filePath(u"session.conf"_s);
    QFile file(configuration);
    if (!file.open(QFile::WriteOnly) || file.write(sessionBusConfiguration) < 0)
        qFatal("No configuration for the session bus.");
    file.close();
    m_sessionBus.start(u"dbus-daemon"_s,
        {u"--nofork"_s, u"--print-address=1"_s, u"--config-file="_s + configuration});
    while (!m_sessionBus.canReadLine()) {
        if (!m_sessionBus.waitForReadyRead(20000))
            qFatal("The session bus does not start.");
    }
    return QString::fromLatin1(m_sessionBus.readLine().trimmed());
}

void ScreenReader::startAccessibilityBus(const TestHome& home, const QString& display)
{
    m_accessibilityBus.setProcessEnvironment(home.environment(display));
    m_accessibilityBus.setStandardErrorFile(QProcess::nullDevice());
    m_accessibilityBus.start(accessibilityBusLauncher(), {u"--launch-immediately"_s});
    const AccessibleAddress launcher{u"org.a11y.Bus"_s, QDBusObjectPath(u"/org/a11y/bus"_s)};
    if (!waitUntil([&] { return m_session.interface()->isServiceRegistered(launcher.service); }))
        qFatal("The accessibility bus does not start.");
    const QDBusReply<QString> address = m_session.call(QDBusMessage::createMethodCall(
        launcher.service, launcher.path.path(), u"org.a11y.Bus"_s, u"GetAddress"_s));
    m_bus = QDBusConnection::connectToBus(address.value(), u"accessibility "_s + address.value());
    if (!m_bus.isConnected())
        qFatal("The accessibility bus does not answer.");

    m_bus.connect({}, {}, u"org.a11y.atspi.Event.Object"_s, u"PropertyChange"_s, this,
        SLOT(hear(QDBusMessage)));
    call({u"org.a11y.atspi.Registry"_s, QDBusObjectPath(u"/org/a11y/atspi/registry"_s)},
        u"org.a11y.atspi.Registry"_s, u"RegisterEvent"_s,
        {u"Object:PropertyChange"_s, QStringList(), QString()});
}

QDBusMessage ScreenReader::call(const AccessibleAddress& object, const QString& interface,
    const QString& method, const QVariantList& arguments) const
{
    QDBusMessage message
        = QDBusMessage::createMethodCall(object.service, object.path.path(), interface, method);
    message.setArguments(arguments);
    return m_bus.call(message);
}

QVariant ScreenReader::property(
    const AccessibleAddress& object, const QString& interface, const QString& name) const
{
    const QDBusReply<QDBusVariant> reply = call(object, properties, u"Get"_s, {interface, name});
    return reply.isValid() ? reply.value().variant() : QVariant();
}

QList<AccessibleAddress> ScreenReader::childrenOf(const AccessibleAddress& address) const
{
    const QDBusReply<QList<AccessibleAddress>> children
        = call(address, accessible, u"GetChildren"_s);
    return children.isValid() ? children.value() : QList<AccessibleAddress>();
}

std::optional<AccessibleObject> ScreenReader::read() const
{
    const AccessibleAddress desktop{
        u"org.a11y.atspi.Registry"_s, QDBusObjectPath(u"/org/a11y/atspi/accessible/root"_s)};
    const QList<AccessibleAddress> programs = childrenOf(desktop);
    if (programs.isEmpty())
        return std::nullopt;
    return readObject(programs.last());
}

std::optional<AccessibleObject> ScreenReader::activeWindow() const
{
    const auto program = read();
    if (!program)
        return std::nullopt;
    for (const AccessibleObject& window : program->children) {
        if (window.is(AccessibleState::Active))
            return window;
    }
    return std::nullopt;
}

AccessibleObject ScreenReader::readObject(const AccessibleAddress& address) const
{
    const auto ask
        = [&](const QString& interface, const QString& method, const QVariantList& arguments = {}) {
              QDBusMessage message = QDBusMessage::createMethodCall(
                  address.service, address.path.path(), interface, method);
              message.setArguments(arguments);
              return m_bus.asyncCall(message);
          };
    // All asked before the first answer is waited for, which takes a fraction of the time.
    QDBusPendingReply<QString> role = ask(accessible, u"GetRoleName"_s);
    QDBusPendingReply<QList<uint>> states = ask(accessible, u"GetState"_s);
    QDBusPendingReply<QDBusVariant> name = ask(properties, u"Get"_s, {accessible, u"Name"_s});
    QDBusPendingReply<QDBusVariant> description
        = ask(properties, u"Get"_s, {accessible, u"Description"_s});
    QDBusPendingReply<QList<AccessibleAddress>> children = ask(accessible, u"GetChildren"_s);

    AccessibleObject object;
    object.address = address;
    object.role = role.value();
    const QList<uint> words = states.value();
    for (qsizetype word = 0; word < words.size(); ++word)
        object.states |= quint64(words[word]) << 32 * word;
    object.name = name.value().variant().toString();
    object.description = description.value().variant().toString();
    if (object.callableName().isEmpty() && object.is(AccessibleState::Focusable))
        object.label = labelOf(address);
    for (const AccessibleAddress& child : children.value())
        object.children += readObject(child);
    return object;
}

QString ScreenReader::labelOf(const AccessibleAddress& address) const
{
    const QDBusMessage reply = call(address, accessible, u"GetRelationSet"_s);
    if (reply.arguments().isEmpty())
        return {};
    const auto relations = reply.arguments().first().value<QDBusArgument>();
    QString label;
    relations.beginArray();
    while (!relations.atEnd()) {
        uint kind = 0;
        QList<AccessibleAddress> targets;
        relations.beginStructure();
        relations >> kind >> targets;
        relations.endStructure();
        if (kind == labelledBy && !targets.isEmpty() && label.isEmpty())
            label = property(targets.first(), accessible, u"Name"_s).toString();
    }
    relations.endArray();
    return label;
}

void ScreenReader::press(const AccessibleObject& control) const
{
    // Without waiting: what opens a menu answers only once it is closed again.
    QDBusMessage message = QDBusMessage::createMethodCall(control.address.service,
        control.address.path.path(), u"org.a11y.atspi.Action"_s, u"DoAction"_s);
    message << 0;
    m_bus.send(message);
}

void ScreenReader::setText(const AccessibleObject& field, const QString& text) const
{
    call(field.address, u"org.a11y.atspi.EditableText"_s, u"SetTextContents"_s, {text});
}

QString ScreenReader::value(const AccessibleObject& control) const
{
    const auto whole = [&](const QString& name) {
        return QString::number(
            property(control.address, u"org.a11y.atspi.Value"_s, name).toDouble());
    };
    return whole(u"CurrentValue"_s) + u" of "_s + whole(u"MinimumValue"_s) + u" to "_s
        + whole(u"MaximumValue"_s);
}

QStringList ScreenReader::takeAnnouncements()
{
    QCoreApplication::processEvents();
    return std::exchange(m_announcements, {});
}

bool ScreenReader::waitForAnnouncement(const QString& text)
{
    return waitUntil(
        [&] {
            QCoreApplication::processEvents();
            return m_announcements.contains(text);
        },
        5s);
}

QStringList ScreenReader::ask(const QString& service, const QString& question) const
{
    const QDBusReply<QStringList> answer
        = m_session.call(QDBusMessage::createMethodCall(service, u"/"_s, service, question));
    return answer.isValid() ? answer.value() : QStringList{answer.error().message()};
}

void ScreenReader::hear(const QDBusMessage& message)
{
    const QVariantList what = message.arguments();
    // The signal brings where the name is, not the name itself.
    if (what.value(0).toString() == u"accessible-name"_s)
        m_announcements
            += property({message.service(), QDBusObjectPath(message.path())}, accessible, u"Name"_s)
                   .toString();
}

} // namespace reelhouse::tests
