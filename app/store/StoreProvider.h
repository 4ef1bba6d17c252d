#pragma once

#include "app/store/StoreContainer.h"
#include "app/store/StorePaths.h"

#include <QtCore/QObject>
#include <QtCore/QThread>
#include <QtCore/QTimer>

namespace reelhouse {

/// How the two stores of a run are opened; tests make them fail.
struct StoreOpeners {
    using Opener = std::function<Result<std::unique_ptr<PersistentStore>, StoreError>()>;

    Opener file;
    Opener memory;
};

/// Opens the stock once per run, off the main thread, and tells the window what came of it.
///
/// Three states: opening (no container, no message), opened (a container), failed for good (a
/// message and no container). Used by the main thread only. The last changes are saved by whoever
/// ends the program; the destructor waits for an opening that is under way and closes the store.
class StoreProvider final : public QObject {
    Q_OBJECT

public:
    /// The outcome of one opening.
    struct Outcome {
        std::unique_ptr<StoreContainer> container; ///< Null when both stores failed.
        QString error; ///< Why the file, and then the memory, could not be used; else empty.
    };

    /// With the openers of SqliteStore.
    explicit StoreProvider(const StorePaths& paths, QObject* parent = nullptr);
    StoreProvider(StorePaths paths, StoreOpeners openers, QObject* parent = nullptr);
    ~StoreProvider() override;

    const StorePaths& paths() const { return m_paths; }
    /// Null until the store is opened, and for good when it could not be.
    StoreContainer* container() const { return m_outcome.container.get(); }
    /// Empty unless no store at all could be opened.
    QString failureMessage() const;
    bool usesMemoryStore() const { return container() && container()->usesMemoryStore(); }

    /// Starts the opening; later calls do nothing.
    void loadIfNeeded();

    /// Makes the data folder, carries an older store over, opens the file, else the memory. Touches
    /// nothing but files and SQLite; the context ends up on the application's main thread.
    static Outcome makeContainer(const StorePaths& paths, const StoreOpeners& openers);

signals:
    /// The container or the failure message is there. Sent once per run.
    void stateChanged();
    /// The outcome is on screen: the window comes to the front.
    void activationRequested();
    /// The stock is the temporary one; `message` says why. Sent last.
    void storeAlertRequested(const QString& message);

private:
    void apply();
    void useIdleTime();

    StorePaths m_paths;
    StoreOpeners m_openers;
    Outcome m_pending; ///< Belongs to the thread until that has finished.
    Outcome m_outcome;
    std::unique_ptr<QThread> m_opening; ///< Once loading was started.
    QTimer m_idleTimer;
};

} // namespace reelhouse
