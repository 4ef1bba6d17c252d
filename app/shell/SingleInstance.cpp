#include "app/shell/SingleInstance.h"

#include "app/store/DurableFiles.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QFile>
#include <QtNetwork/QLocalServer>
#include <QtNetwork/QLocalSocket>

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace reelhouse {

namespace {

constexpr auto lockName = ".Spoolwright.lock";
constexpr auto socketName = ".Spoolwright.socket";
constexpr auto patience = 5s;
constexpr auto pause = 20ms;
constexpr qint64 longestRequest = 4096;

QByteArray activationToken()
{
    const QByteArray token = qgetenv("XDG_ACTIVATION_TOKEN");
    return token.isEmpty() ? qgetenv("DESKTOP_STARTUP_ID") : token;
}

} // namespace

SingleInstance::SingleInstance(const QString& dataFolder, QObject* parent)
    : QObject(parent)
    , m_server(new QLocalServer(this))
{
    DurableFiles::makeFolder(dataFolder); // A failure shows right below.
    m_folder = open(QFile::encodeName(dataFolder).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC);

    // The holder may be starting (not listening yet) or ending (no longer answering): ask until it
    // answers or the lock comes free.
    const QDeadlineTimer deadline(patience);
    while (!holdsLock()) {
        if (askToRaise() || deadline.hasExpired()) {
            m_isPrimary = false;
            return;
        }
        std::this_thread::sleep_for(pause);
    }
    if (m_lock >= 0)
        listen();
}

SingleInstance::~SingleInstance()
{
    m_server->close(); // Removes the socket, which must be done under the lock.
    if (m_lock >= 0)
        close(m_lock);
    if (m_folder >= 0)
        close(m_folder);
}

bool SingleInstance::isPrimary() const
{
    return m_isPrimary;
}

/// False only where somebody else holds the lock.
bool SingleInstance::holdsLock()
{
    if (m_lock < 0) {
        // Reading is enough to lock, and works where an existing file may not be written.
        m_lock = openat(m_folder, lockName,
            O_RDONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, S_IRUSR | S_IWUSR);
    }
    return m_lock < 0 || flock(m_lock, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

/// By way of the open folder, because the address of a socket has room for 107 bytes only.
QString SingleInstance::socketPath() const
{
    return u"/proc/self/fd/%1/%2"_s.arg(QString::number(m_folder), QLatin1StringView(socketName));
}

void SingleInstance::listen()
{
    unlinkat(m_folder, socketName, 0); // Left behind by a program that was killed.
    connect(m_server, &QLocalServer::newConnection, this, [this] {
        QLocalSocket* request = m_server->nextPendingConnection();
        request->setReadBufferSize(longestRequest);
        connect(request, &QLocalSocket::disconnected, request, &QObject::deleteLater);
        connect(
            request, &QLocalSocket::readyRead, this, [this, request] { readRequest(*request); });
    });
    // Where the file system knows no sockets, a later program just ends.
    m_server->listen(socketPath());
}

/// True once the holder of the lock has answered.
bool SingleInstance::askToRaise() const
{
    constexpr int milliseconds = std::chrono::milliseconds(patience).count();
    QLocalSocket request;
    request.connectToServer(socketPath());
    if (!request.waitForConnected(milliseconds))
        return false;
    request.write(activationToken() + '\n');
    return request.waitForReadyRead(milliseconds);
}

void SingleInstance::readRequest(QLocalSocket& request)
{
    if (!request.canReadLine())
        return;
    const QByteArray token = request.readLine(longestRequest).trimmed();
    request.write("\n");
    request.disconnectFromServer();
    emit raiseRequested(QString::fromUtf8(token));
}

} // namespace reelhouse
