#pragma once

#include <QtCore/QMap>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusServer>
#include <QtDBus/QDBusVariant>

namespace reelhouse::tests {

/// The settings portal of a desktop, reached over a connection of its own instead of a bus.
class FakePortal final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit FakePortal(const QMap<QString, uint>& settings);
    ~FakePortal() override;

    /// What a program would have as its session bus.
    QDBusConnection bus() const { return QDBusConnection(m_name); }
    /// Changes a setting and tells so.
    void change(const QString& group, const QString& key, uint value);

public slots:
    QDBusVariant Read(const QString& group, const QString& key); // NOLINT: the portal's spelling

signals:
    void SettingChanged( // NOLINT: the portal's spelling
        const QString& group, const QString& key, const QDBusVariant& value);

private:
    void welcome(QDBusConnection connection);

    QMap<QString, uint> m_settings;
    QDBusServer m_server;
    QString m_name;
};

} // namespace reelhouse::tests
