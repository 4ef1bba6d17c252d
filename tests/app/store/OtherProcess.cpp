#include "tests/app/store/OtherProcess.h"

#include <QtCore/QtGlobal>

#include <array>
#include <csignal>
#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

namespace reelhouse::tests {

namespace {

constexpr uid_t nobody = 65534;

} // namespace

OtherProcess::OtherProcess(const std::function<void(const Report&)>& work)
{
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0)
        qFatal("The test has no pipe.");
    m_process = ::fork();
    if (m_process < 0)
        qFatal("The test cannot start a process.");
    if (m_process == 0) {
        ::close(pipe[0]);
        work([&] {
            if (::write(pipe[1], "r", 1) != 1)
                ::_exit(1);
        });
        while (true)
            ::pause();
    }
    ::close(pipe[1]);
    m_reports = pipe[0];
}

OtherProcess::~OtherProcess()
{
    kill();
    ::close(m_reports);
}

void OtherProcess::waitForReport()
{
    char report = 0;
    if (::read(m_reports, &report, 1) != 1)
        qFatal("The other process ended early.");
}

int OtherProcess::kill()
{
    if (m_process < 0)
        return 0;
    ::kill(m_process, SIGKILL);
    ::waitpid(m_process, nullptr, 0);
    m_process = -1;
    int reports = 0;
    char report = 0;
    while (::read(m_reports, &report, 1) == 1)
        ++reports;
    return reports;
}

OrdinaryUser::OrdinaryUser(const char* folder)
{
    if (::geteuid() != 0)
        return;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (::lchown(entry.path().c_str(), nobody, nobody) != 0)
            qFatal("The test cannot give its files away.");
    }
    if (::chown(folder, nobody, nobody) != 0 || ::seteuid(nobody) != 0)
        qFatal("The test cannot become an ordinary user.");
}

OrdinaryUser::~OrdinaryUser()
{
    if (::getuid() == 0 && ::seteuid(0) != 0)
        qFatal("The test cannot become root again.");
}

} // namespace reelhouse::tests
