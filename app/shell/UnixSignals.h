#pragma once

#include <QtCore/QObject>

namespace reelhouse {

/// Brings the operating system's signals into the event loop while it lives; there is one at a
/// time. Writing to a closed pipe or beyond the largest allowed file size gives an error instead of
/// ending the program.
class UnixSignals final : public QObject {
    Q_OBJECT

public:
    explicit UnixSignals(QObject* parent = nullptr);
    /// From now on the signals do nothing: the program is ending already.
    ~UnixSignals() override;

signals:
    /// SIGTERM, SIGINT or SIGHUP arrived: the program is to end, without asking.
    void terminationRequested();

private:
    void readWakeUp();

    int m_wakeUp = -1;
};

} // namespace reelhouse
