#include "tests/app/ui/FakePortal.h"

#include <QtCore/QUuid>

using namespace Qt::StringLiterals;

namespace reelhouse::tests {

FakePortal::FakePortal(const QMap<QString, uint>& settings)
    : m_settings(settings)
    , m_server(u"unix:tmpdir=/tmp"_s)
    , m_name(QUuid::createUuid().toString())
{
    connect(&m_server, &QDBusServer::newConnection, this, &FakePortal::welcome);
    QDBusConnection::connectToPeer(m_server.address(), m_name);
}

FakePortal::~FakePortal()
{
    QDBusConnection::disconnectFromPeer(m_name);
}

void FakePortal::welcome(QDBusConnection connection)
{
    connection.registerObject(u"/org/freedesktop/portal/desktop"_s, this,
        QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
}

void FakePortal::change(const QString& group, const QString& key, uint value)
{
    emit SettingChanged(group, key, QDBusVariant(value));
}

QDBusVariant FakePortal::Read(const QString& group, const QString& key)
{
    if (group != "org.freedesktop.appearance"_L1)
        return {};
    // The real one wraps the value twice as well.
    return QDBusVariant(QVariant::fromValue(QDBusVariant(m_settings.value(key))));
}

} // namespace reelhouse::tests
