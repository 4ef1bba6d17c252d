#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <functional>

namespace reelhouse {

class MainWindow;
class MainWindowPlace;
class Preferences;
class StoreContainer;
class StoreProvider;

/// Sets the main window up and places it, brings the program to the front, starts the opening of
/// the store, and keeps what must not be lost when the program ends.
class AppDelegate final : public QObject {
    Q_OBJECT

public:
    /// `mainWindow` is asked for the window each time one is needed; null means that there is none.
    AppDelegate(Preferences& preferences, StoreProvider& provider,
        std::function<MainWindow*()> mainWindow, QObject* parent = nullptr);

    /// Begins the start-up sequence once the event loop runs.
    void applicationDidFinishLaunching();
    /// Brings the main window to the front, as when the user starts the program a second time.
    /// `activationToken` is what the desktop gave the second launch, or empty.
    void applicationShouldHandleReopen(const QString& activationToken);
    /// Brings the program to the front, trying again for a while where the desktop is reluctant.
    void activateApplication() { tryToActivate(0); }
    /// Writes the window's size when the user wants it remembered.
    void saveWindowStateIfEnabled();
    /// Whether the user may close the main window; saves its size and, unless told not to, asks.
    bool windowShouldClose();
    /// The quit command: saves the window's size, asks, and ends the program unless the user says
    /// no.
    void applicationShouldTerminate();
    /// Whether the user wants to quit, asked in a modal alert unless it is not to be asked.
    bool confirmQuit();
    /// Saves the window's size, then ends the event loop with status 0, without a question.
    void terminate();
    /// Writes the quit backup when the user wants one. Returns when it is on disk; a failure never
    /// stops the quit.
    void performBackupIfEnabled();
    /// The desktop session ends: saves what would be lost, for the time may be short.
    void commitData();
    /// The alert that tells why the program runs on the temporary store. Modal.
    void presentStoreError(const QString& message);

    /// Shows the folder of the stock in the desktop's file browser.
    void openDataFolder();

    StoreContainer* modelContainer() const;
    bool usingInMemoryStore() const;
    bool shouldRestoreWindowState() const;

    /// Ends the program when the platform wants it ended: its last window was closed, which the
    /// user has confirmed, or the session is over.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void startWindowSetup(int attempt);
    bool configureMainWindow();
    void correctPlacement();
    void tryToActivate(int attempt);
    void bringToFront();

    Preferences& m_preferences;
    StoreProvider& m_provider;
    std::function<MainWindow*()> m_mainWindow;
    QPointer<MainWindowPlace> m_place; ///< Of the window, once that is configured.
    bool m_didConfigureWindow = false;
    bool m_didRequestAttention = false;
    bool m_isAskingToQuit = false;
};

} // namespace reelhouse
