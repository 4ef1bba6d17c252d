#pragma once

#include <QtCore/QString>

#include <chrono>
#include <memory>

namespace reelhouse::tests {

/// The part of a desktop that programs register with so as to be told when the user logs out.
/// There is only one in a test program, and one program registers with it.
class SessionManager final {
public:
    SessionManager();
    ~SessionManager();
    SessionManager(const SessionManager&) = delete;
    SessionManager& operator=(const SessionManager&) = delete;

    /// What SESSION_MANAGER holds for the program.
    QString address() const;
    /// Waits until the program has registered.
    bool waitForProgram();
    /// Ends the session as a log-out does: asks the program to save, and once it says that it has,
    /// tells it to end. False when it does not answer within `limit`.
    bool endSession(std::chrono::milliseconds limit);

private:
    struct Connections;
    std::unique_ptr<Connections> m_connections;
};

} // namespace reelhouse::tests
