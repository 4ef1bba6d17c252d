#include "bench/StartedProgram.h"
#include "tests/window/VirtualDesktop.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusVariant>

#include <cstdio>
#include <deque>

using namespace Qt::StringLiterals;
using reelhouse::bench::StartedProgram;

namespace {

constexpr int rounds = 21;

constexpr const char* busConfiguration = R"(<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=/tmp</listen>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

/// A session bus of our own, on which nothing runs and nothing can be started.
class PrivateBus final {
public:
    PrivateBus()
    {
        QFile configuration(m_folder.filePath(u"bus.conf"_s));
        if (!configuration.open(QFile::WriteOnly) || configuration.write(busConfiguration) < 0)
            qFatal("The configuration of the bus cannot be written.");
        configuration.close();
        m_daemon.start(u"dbus-daemon"_s,
            {u"--config-file="_s + configuration.fileName(), u"--nofork"_s,
                u"--print-address=1"_s});
        while (!m_daemon.canReadLine()) {
            if (!m_daemon.waitForReadyRead())
                qFatal("dbus-daemon does not start.");
        }
        m_address = QString::fromLocal8Bit(m_daemon.readLine().trimmed());
    }
    ~PrivateBus()
    {
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    const QString& address() const { return m_address; }

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
};

/// A portal that hangs: it takes every question, and this thread, which would answer, never does.
class SilentPortal final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit SilentPortal(const PrivateBus& bus)
    {
        QDBusConnection connection = QDBusConnection::connectToBus(bus.address(), u"silent"_s);
        if (!connection.registerObject(
                u"/org/freedesktop/portal/desktop"_s, this, QDBusConnection::ExportAllSlots)
            || !connection.registerService(u"org.freedesktop.portal.Desktop"_s))
            qFatal("There is no portal.");
    }
    ~SilentPortal() override { QDBusConnection::disconnectFromBus(u"silent"_s); }

public slots:
    QDBusVariant Read(const QString&, const QString&) // NOLINT: the portal's spelling
    {
        return {};
    }
};

} // namespace

/// `desktop-benchmark SPOOLWRIGHT STORE`: what a desktop without a session bus, without a portal or
/// with one that hangs costs at the start and at the end of the program, in turns.
int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    if (argc != 3) {
        std::fputs("desktop-benchmark SPOOLWRIGHT STORE\n", stderr);
        return 2;
    }
    const PrivateBus emptyBus;
    const PrivateBus busWithPortal;
    const SilentPortal portal(busWithPortal);
    const auto busAt = [](const QString& address) {
        return QMap<QString, QString>{{u"DBUS_SESSION_BUS_ADDRESS"_s, address}};
    };
    reelhouse::tests::VirtualDesktop desktop;
    std::deque<std::pair<const char*, StartedProgram>> subjects;
    const auto add = [&](const char* name, const QMap<QString, QString>& variables) {
        subjects.emplace_back(std::piecewise_construct, std::forward_as_tuple(name),
            std::forward_as_tuple(desktop, QFile::decodeName(argv[1]), u"Spoolwright"_s,
                QFile::decodeName(argv[2]), variables));
        subjects.back().second.rehearse();
    };
    add("no session bus", busAt({}));
    add("a bus, no portal", busAt(emptyBus.address()));
    add("a portal that hangs", busAt(busWithPortal.address()));
    for (int round = 0; round < rounds; ++round) {
        for (auto& subject : subjects)
            subject.second.measure();
    }
    for (const auto& [name, program] : subjects)
        std::printf("%-20s start to painted list %4.0f ms, SIGTERM to end %4.0f ms\n", name,
            program.startMilliseconds(), program.endMilliseconds());
    return 0;
}

#include "DesktopBenchmark.moc"
