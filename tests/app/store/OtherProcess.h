#pragma once

#include <functional>
#include <sys/types.h>

namespace reelhouse::tests {

/// A second process that runs `work`, then waits to be killed. The destructor kills it and waits
/// for its end. `work` may report that something is done by calling its argument.
class OtherProcess final {
public:
    using Report = std::function<void()>;

    explicit OtherProcess(const std::function<void(const Report&)>& work);
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;
    ~OtherProcess();

    /// Waits until it has reported once more.
    void waitForReport();
    /// Ends it as a power cut would. Returns how many reports were never waited for.
    int kill();

private:
    pid_t m_process = -1;
    int m_reports = -1;
};

/// Takes on the rights of an ordinary user until the end of the scope, when the tests run as root,
/// for whom nothing is read-only. What the user shall reach is given to them first.
class OrdinaryUser final {
public:
    /// Gives `folder` and everything below it to the user.
    explicit OrdinaryUser(const char* folder);
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser();
};

} // namespace reelhouse::tests
