#include "tests/window/RunningProgram.h"

#include "tests/support/Waiting.h"
#include "tests/window/TestHome.h"
#include "tests/window/VirtualDesktop.h"

#include <csignal>
#include <linux/capability.h>
#include <sys/prctl.h>

using namespace Qt::StringLiterals;

namespace reelhouse::tests {

namespace {

/// Tests may run as root, for whom no file is closed; the user is not.
void obeyFilePermissions()
{
    for (const int capability : {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH})
        ::prctl(PR_CAPBSET_DROP, capability, 0, 0, 0);
}

} // namespace

RunningProgram::RunningProgram(
    const TestHome& home, VirtualDesktop& desktop, const QMap<QString, QString>& variables)
    : m_desktop(desktop)
{
    QProcessEnvironment environment = home.environment(desktop.display());
    for (auto variable = variables.cbegin(); variable != variables.cend(); ++variable)
        environment.insert(variable.key(), variable.value());
    m_process.setProcessEnvironment(environment);
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.setChildProcessModifier(obeyFilePermissions);
    m_process.start(QStringLiteral(SPOOLWRIGHT_PROGRAM), QStringList());
    if (!m_process.waitForStarted())
        qFatal("The program does not start.");
}

RunningProgram::~RunningProgram()
{
    if (isRunning()) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

bool RunningProgram::isRunning()
{
    m_process.waitForFinished(0); // Notices the end without an event loop.
    return m_process.state() != QProcess::NotRunning;
}

pid_t RunningProgram::processId() const
{
    return static_cast<pid_t>(m_process.processId());
}

std::optional<Screen::Window> RunningProgram::waitForWindow()
{
    Screen& screen = m_desktop.screen();
    const auto ownWindow = [this, &screen] { return screen.find(u"Spoolwright"_s, processId()); };
    if (!waitUntil([&] { return ownWindow().has_value(); })
        || !screen.waitForRest(ownWindow()->area))
        return std::nullopt;
    return ownWindow();
}

int RunningProgram::waitForEnd(std::chrono::milliseconds limit)
{
    const bool ended = m_process.state() == QProcess::NotRunning
        || m_process.waitForFinished(int(limit.count()));
    return ended && m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

int RunningProgram::endWith(int signal, std::chrono::milliseconds limit)
{
    kill(processId(), signal);
    return waitForEnd(limit);
}

QByteArray RunningProgram::output()
{
    m_output += m_process.readAll();
    return m_output;
}

} // namespace reelhouse::tests
