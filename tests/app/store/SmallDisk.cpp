#include "tests/app/store/SmallDisk.h"

#include <QtCore/QFile>

#include <array>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace reelhouse::tests {

namespace {

constexpr int noDisk = 7;

bool mountDisk(const QString& folder, int kilobytes)
{
    // Root may mount at once, anybody else as the root of a user namespace of their own.
    if (::unshare(CLONE_NEWNS) != 0 && ::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
        return false;
    const QByteArray options = "size=" + QByteArray::number(kilobytes) + "k";
    return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0
        && ::mount("none", QFile::encodeName(folder).constData(), "tmpfs", 0, options.constData())
        == 0;
}

} // namespace

std::optional<QStringList> onSmallDisk(
    const QString& folder, int kilobytes, const std::function<QStringList()>& work)
{
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0)
        qFatal("The test has no pipe.");
    const pid_t child = ::fork();
    if (child == 0) {
        if (!mountDisk(folder, kilobytes))
            ::_exit(noDisk);
        const QByteArray answer = work().join(u'\x1e').toUtf8();
        const bool isWritten
            = ::write(pipe[1], answer.constData(), size_t(answer.size())) == answer.size();
        ::_exit(isWritten ? 0 : 1);
    }
    ::close(pipe[1]);
    QByteArray answer;
    std::array<char, 4096> buffer{};
    ssize_t count = 0;
    while ((count = ::read(pipe[0], buffer.data(), buffer.size())) > 0)
        answer.append(buffer.data(), count);
    ::close(pipe[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    if (WIFEXITED(status) && WEXITSTATUS(status) == noDisk)
        return std::nullopt;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return QStringList{u"the other process failed"_s};
    return QString::fromUtf8(answer).split(u'\x1e');
}

} // namespace reelhouse::tests
