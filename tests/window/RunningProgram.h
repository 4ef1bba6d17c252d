#pragma once

#include "tests/support/Screen.h"

#include <QtCore/QProcess>

#include <optional>

namespace reelhouse::tests {

class TestHome;
class VirtualDesktop;

/// The real program, started by a user on a virtual screen. Killed with the object if it still
/// runs.
class RunningProgram final {
public:
    RunningProgram(const TestHome& home, VirtualDesktop& desktop);
    ~RunningProgram();
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    bool isRunning();
    pid_t processId() const;
    /// Waits until its window is shown and nothing moves in it any more; nothing when that does not
    /// happen.
    std::optional<Screen::Window> waitForWindow();
    /// Waits for its end: the exit status, or -1 when it crashes or does not end.
    int waitForEnd();
    /// Sends `signal`, then waits for the end.
    int endWith(int signal);
    /// Everything it wrote to standard output and error so far.
    QByteArray output();

private:
    VirtualDesktop& m_desktop;
    QProcess m_process;
    QByteArray m_output;
};

} // namespace reelhouse::tests
