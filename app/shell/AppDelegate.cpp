#include "app/shell/AppDelegate.h"

#include "app/backup/BackupService.h"
#include "app/shell/FileBrowser.h"
#include "app/shell/MainWindow.h"
#include "app/shell/MainWindowPlace.h"
#include "app/shell/WindowPlacement.h"
#include "app/store/StoreContainer.h"
#include "app/store/StoreErrorAlert.h"
#include "app/store/StoreProvider.h"
#include "app/store/StoreTexts.h"
#include "app/ui/Alert.h"
#include "core/model/StoreContext.h"
#include "core/preferences/Preferences.h"

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <chrono>
#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace reelhouse {

namespace {

constexpr int lastSetupAttempt = 29;
constexpr auto setupPause = 100ms;
constexpr int lastActivationAttempt = 8;
constexpr int attentionAttempt = 6;
constexpr auto activationPause = 200ms;
constexpr auto firstCorrection = 300ms;
constexpr auto secondCorrection = 800ms;

/// Raises the window and above it the alert that waits for an answer, which no window manager may
/// be there to keep on top. Returns the one of the two that takes the keyboard.
QWidget& raiseWithDialogs(MainWindow& window)
{
    window.raise();
    QWidget* dialog = QApplication::activeModalWidget();
    if (!dialog)
        return window;
    dialog->raise();
    return *dialog;
}

} // namespace

AppDelegate::AppDelegate(Preferences& preferences, StoreProvider& provider,
    std::function<MainWindow*()> mainWindow, QObject* parent)
    : QObject(parent)
    , m_preferences(preferences)
    , m_provider(provider)
    , m_mainWindow(std::move(mainWindow))
{
    qApp->installEventFilter(this);
    // While the session manager waits for the answer.
    connect(qApp, &QGuiApplication::commitDataRequest, this, &AppDelegate::commitData,
        Qt::DirectConnection);
}

void AppDelegate::applicationDidFinishLaunching()
{
    QTimer::singleShot(0ms, this, [this] { startWindowSetup(0); });
}

void AppDelegate::startWindowSetup(int attempt)
{
    if (configureMainWindow()) {
        tryToActivate(0);
        m_provider.loadIfNeeded();
        QTimer::singleShot(firstCorrection, this, &AppDelegate::correctPlacement);
        QTimer::singleShot(secondCorrection, this, &AppDelegate::correctPlacement);
    } else if (attempt >= lastSetupAttempt) {
        m_provider.loadIfNeeded();
    } else {
        QTimer::singleShot(setupPause, this, [this, attempt] { startWindowSetup(attempt + 1); });
    }
}

bool AppDelegate::configureMainWindow()
{
    MainWindow* window = m_mainWindow();
    if (m_didConfigureWindow || !window)
        return false;
    m_didConfigureWindow = true;
    window->setCloseQuestion([this] { return windowShouldClose(); });
    connect(window, &MainWindow::quitRequested, this, &AppDelegate::applicationShouldTerminate);
    m_place = new MainWindowPlace(*window);
    const auto saved = shouldRestoreWindowState() ? m_preferences.windowSize() : std::nullopt;
    m_place->placeOnMainScreen(saved ? saved->toSize() : WindowPlacement::defaultSize);
    bringToFront();
    return true;
}

void AppDelegate::correctPlacement()
{
    MainWindow* window = m_mainWindow();
    if (!window || !m_place || !window->isVisible())
        return;
    m_place->placeOnMainScreen(window->size());
    raiseWithDialogs(*window);
}

void AppDelegate::tryToActivate(int attempt)
{
    MainWindow* window = m_mainWindow();
    if (attempt > 0 && window && !window->isVisible())
        return; // Closed meanwhile.
    bringToFront();
    const bool isActive = QGuiApplication::applicationState() == Qt::ApplicationActive;
    if (!isActive && attempt == attentionAttempt && window
        && !std::exchange(m_didRequestAttention, true))
        QApplication::alert(window);
    if (isActive || attempt >= lastActivationAttempt)
        return;
    QTimer::singleShot(activationPause, this, [this, attempt] { tryToActivate(attempt + 1); });
}

void AppDelegate::bringToFront()
{
    MainWindow* window = m_mainWindow();
    if (!window)
        return;
    if (window->isMinimized())
        window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->show();
    raiseWithDialogs(*window).activateWindow();
}

void AppDelegate::applicationShouldHandleReopen(const QString& activationToken)
{
    if (!activationToken.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", activationToken.toUtf8()); // read by Qt's Wayland platform
    tryToActivate(0);
}

bool AppDelegate::shouldRestoreWindowState() const
{
    return m_preferences.rememberWindowState();
}

void AppDelegate::saveWindowStateIfEnabled()
{
    const MainWindow* window = m_mainWindow();
    if (shouldRestoreWindowState() && window && m_didConfigureWindow)
        m_preferences.setWindowSize(window->size());
}

bool AppDelegate::windowShouldClose()
{
    saveWindowStateIfEnabled();
    return confirmQuit();
}

void AppDelegate::applicationShouldTerminate()
{
    saveWindowStateIfEnabled();
    if (confirmQuit())
        terminate();
}

bool AppDelegate::confirmQuit()
{
    StoreContainer* container = modelContainer();
    const auto unsaved = container ? container->context().save() : std::nullopt;
    // Who never wants to be asked is asked all the same when the answer costs something.
    if (!m_preferences.confirmOnQuit() && !unsaved)
        return true;
    if (std::exchange(m_isAskingToQuit, true))
        return false; // The question stands there already.
    constexpr int quit = 0;
    Alert alert(AlertTone::Question, u"Quitter Spoolwright ?"_s,
        u"Voulez-vous vraiment quitter l'application ?"_s,
        {{u"Quitter"_s, AlertRole::Confirm}, {u"Annuler"_s, AlertRole::Cancel}}, m_mainWindow());
    if (usingInMemoryStore())
        alert.addNote(u"Aucune sauvegarde ne sera créée (mode base temporaire)."_s);
    if (unsaved)
        alert.addNote(unsavedText(unsaved->description()));
    const int answer = alert.exec();
    m_isAskingToQuit = false;
    return answer == quit;
}

void AppDelegate::commitData()
{
    saveWindowStateIfEnabled();
    if (StoreContainer* container = modelContainer())
        container->context().save();
}

bool AppDelegate::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != qApp || event->type() != QEvent::Quit)
        return QObject::eventFilter(watched, event);
    // Here and not in the application, which would close the window and so ask again.
    terminate();
    return true;
}

void AppDelegate::terminate()
{
    saveWindowStateIfEnabled();
    QCoreApplication::exit(0);
}

void AppDelegate::performBackupIfEnabled()
{
    StoreContainer* container = modelContainer();
    if (m_preferences.autoBackupOnQuit() && container)
        BackupService::performBackup(*container, m_preferences.maxBackups());
}

void AppDelegate::presentStoreError(const QString& message)
{
    const std::unique_ptr<Alert> alert(makeStoreErrorAlert(message, m_mainWindow()));
    if (StoreErrorAnswer(alert->exec()) == StoreErrorAnswer::OpenDataFolder)
        openDataFolder();
}

void AppDelegate::openDataFolder()
{
    FileBrowser::openFolder(m_provider.paths().dataFolder());
}

StoreContainer* AppDelegate::modelContainer() const
{
    return m_provider.container();
}

bool AppDelegate::usingInMemoryStore() const
{
    return m_provider.usesMemoryStore();
}

} // namespace reelhouse
