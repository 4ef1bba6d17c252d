#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

class QLocalServer;
class QLocalSocket;

namespace reelhouse {

/// Sees to it that one program runs on a data folder: the first holds a lock in the folder until it
/// ends, in whatever way, and listens on a socket beside it; a later one asks the first to come
/// forward. Folders are independent of each other.
/// Where the folder cannot be written, or knows no locks, every program counts as the first.
class SingleInstance final : public QObject {
    Q_OBJECT

public:
    /// Creates `dataFolder` when it is missing. Where another program holds it, returns once that
    /// one has answered, or after five seconds.
    explicit SingleInstance(const QString& dataFolder, QObject* parent = nullptr);
    /// Gives the folder free.
    ~SingleInstance() override;

    /// False where another program runs on the folder and this one has nothing to do.
    bool isPrimary() const;

signals:
    /// Another program was started on the folder. `activationToken` is what the desktop gave to it
    /// so that our window may come forward (XDG_ACTIVATION_TOKEN, else DESKTOP_STARTUP_ID), or
    /// empty.
    void raiseRequested(const QString& activationToken);

private:
    bool holdsLock();
    QString socketPath() const;
    void listen();
    bool askToRaise() const;
    void readRequest(QLocalSocket& request);

    int m_folder;
    int m_lock = -1;
    bool m_isPrimary = true;
    QLocalServer* m_server;
};

} // namespace reelhouse
