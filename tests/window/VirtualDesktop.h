#pragma once

#include "tests/support/Screen.h"

#include <QtCore/QProcess>
#include <QtCore/QSize>

#include <memory>

namespace reelhouse::tests {

/// A virtual X screen of our own, ended with the object. No window manager runs on it unless asked
/// for: windows then stand where they put themselves.
class VirtualDesktop final {
public:
    explicit VirtualDesktop(QSize size = {1400, 1000});
    ~VirtualDesktop();
    VirtualDesktop(const VirtualDesktop&) = delete;
    VirtualDesktop& operator=(const VirtualDesktop&) = delete;

    /// Whether this machine has what a virtual screen takes.
    static bool isPossible();

    /// False when the window manager does not start.
    bool startWindowManager();
    /// What DISPLAY holds for its programs.
    QString display() const { return m_display; }
    Screen& screen() { return *m_screen; }

private:
    QProcess m_server;
    QProcess m_windowManager;
    QString m_display;
    std::unique_ptr<Screen> m_screen;
};

} // namespace reelhouse::tests
