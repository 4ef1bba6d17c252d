#pragma once

#include <QtCore/QFile>
#include <QtCore/QtGlobal>

#include <malloc.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace reelhouse::tests {

/// Whether memory can be made scarce; the address sanitizer needs far more than it is asked for.
#ifdef __SANITIZE_ADDRESS__
inline constexpr bool canLimitMemory = false;
#else
inline constexpr bool canLimitMemory = true;
#endif

inline qint64 dataBytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The system does not tell how much memory is used.");
    return file.readAll().split(' ').at(5).toLongLong() * qint64(sysconf(_SC_PAGESIZE));
}

/// What `work` (a small number) returns in a copy of this process that gets so many bytes more than
/// it has now, or a number from 100 on when the copy dies of it.
template <class Work>
int inLittleMemory(qint64 bytes, const Work& work)
{
    const pid_t child = fork();
    if (child == 0) {
        malloc_trim(0); // What was freed before is no room for this.
        rlimit limit{};
        getrlimit(RLIMIT_DATA, &limit);
        limit.rlim_cur = rlim_t(dataBytes() + bytes);
        setrlimit(RLIMIT_DATA, &limit);
        _exit(work());
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 100 + WTERMSIG(status);
}

} // namespace reelhouse::tests
