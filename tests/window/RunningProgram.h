#pragma once

#include "tests/support/Screen.h"

#include <QtCore/QMap>
#include <QtCore/QProcess>

#include <chrono>
#include <optional>

namespace reelhouse::tests {

class TestHome;
class VirtualDesktop;

/// The real program, started by a user on a virtual screen. Killed with the object if it still
/// runs.
class RunningProgram final {
public:
    /// `variables` come beside those of the user's environment.
    RunningProgram(const TestHome& home, VirtualDesktop& desktop,
        const QMap<QString, QString>& variables = {});
    ~RunningProgram();
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    bool isRunning();
    pid_t processId() const;
    /// Waits until its window is shown and nothing moves in it any more; nothing when that does not
    /// happen.
    std::optional<Screen::Window> waitForWindow();
    /// Waits for its end: the exit status, or -1 when it crashes or does not end within `limit`.
    int waitForEnd(std::chrono::milliseconds limit = std::chrono::seconds(30));
    /// Sends `signal`, then waits for the end.
    int endWith(int signal, std::chrono::milliseconds limit = std::chrono::seconds(30));
    /// Everything it wrote to standard output and error so far.
    QByteArray output();

private:
    VirtualDesktop& m_desktop;
    QProcess m_process;
    QByteArray m_output;
};

} // namespace reelhouse::tests
