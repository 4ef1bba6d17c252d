#include "app/shell/UnixSignals.h"

#include <QtCore/QSocketNotifier>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace reelhouse {

namespace {

constexpr int endings[] = {SIGTERM, SIGINT, SIGHUP};
constexpr int failedWrites[] = {SIGPIPE, SIGXFSZ};

// A signal handler is given nothing but the number: what it needs can only lie here.
std::atomic<int> wakeUpEnd = -1;

void wakeUp(int /*signal*/)
{
    const int before = errno;
    const char byte = 0;
    // When the socket is full the loop wakes up anyway.
    [[maybe_unused]] const ssize_t written = write(wakeUpEnd.load(), &byte, sizeof byte);
    errno = before;
}

void doNothing(int /*signal*/) {}

void handle(int signal, void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

} // namespace

UnixSignals::UnixSignals(QObject* parent)
    : QObject(parent)
{
    int ends[2] = {-1, -1};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, ends) != 0)
        qFatal("No socket pair for the signals.");
    m_wakeUp = ends[0];
    wakeUpEnd = ends[1];
    auto* notifier = new QSocketNotifier(m_wakeUp, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &UnixSignals::readWakeUp);

    for (const int signal : endings)
        handle(signal, wakeUp);
    // Not SIG_IGN: programs that we start, such as the file browser, would inherit that.
    for (const int signal : failedWrites)
        handle(signal, doNothing);
}

UnixSignals::~UnixSignals()
{
    for (const int signal : endings)
        handle(signal, doNothing);
    close(wakeUpEnd.exchange(-1));
    close(m_wakeUp);
}

void UnixSignals::readWakeUp()
{
    char bytes[64];
    while (read(m_wakeUp, bytes, sizeof bytes) > 0) {}
    emit terminationRequested();
}

} // namespace reelhouse
