#include "app/shell/ReelhouseApp.h"

#include "app/shell/AboutView.h"
#include "app/shell/ContentView.h"
#include "app/shell/EditCommands.h"
#include "app/shell/FileBrowser.h"
#include "app/shell/KeysView.h"
#include "app/shell/MenuCommands.h"
#include "app/shell/SettingsView.h"
#include "app/shell/SingleInstance.h"
#include "app/store/StoreContainer.h"
#include "app/store/StoreFailedView.h"
#include "app/store/StoreLoadingView.h"
#include "app/ui/Symbol.h"
#include "core/model/StoreContext.h"
#include "core/product/Product.h"

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenuBar>

#include <chrono>

using namespace std::chrono_literals;

namespace reelhouse {

namespace {

/// A desktop that is there answers within a few milliseconds; one that hangs must not be felt.
constexpr auto longestWaitForColors = 30ms;

} // namespace

ReelhouseApp::ReelhouseApp(
    const StorePaths& paths, const QString& preferencesFile, SingleInstance& instance)
    : m_preferences(preferencesFile)
    , m_favorites(m_preferences)
    , m_provider(paths)
    , m_delegate(m_preferences, m_provider, [this] { return &m_window; })
{
    showScreen();
    connect(&m_provider, &StoreProvider::stateChanged, this, &ReelhouseApp::showScreen);
    connect(&m_provider, &StoreProvider::activationRequested, &m_delegate,
        &AppDelegate::activateApplication);
    connect(&m_provider, &StoreProvider::storeAlertRequested, &m_delegate,
        &AppDelegate::presentStoreError);
    connect(&instance, &SingleInstance::raiseRequested, &m_delegate,
        &AppDelegate::applicationShouldHandleReopen);
    connect(&m_window, &MainWindow::aboutRequested, this, &ReelhouseApp::showAbout);
    connect(&m_window, &MainWindow::keysRequested, this, &ReelhouseApp::showKeys);
    connect(&m_signals, &UnixSignals::terminationRequested, &m_delegate, &AppDelegate::terminate);
}

int ReelhouseApp::run()
{
    m_theme.whenSettled(
        longestWaitForColors, [this] { m_delegate.applicationDidFinishLaunching(); });
    // Drawing it at every size takes longer than opening the stock: not before the stock is shown.
    QTimer::singleShot(1s, this, [] { QGuiApplication::setWindowIcon(applicationIcon()); });
    const int status = QApplication::exec();
    // Whatever ended the event loop, what the last action changed is not lost.
    if (StoreContainer* container = m_provider.container())
        container->context().save();
    m_delegate.performBackupIfEnabled();
    return status;
}

void ReelhouseApp::showScreen()
{
    if (StoreContainer* container = m_provider.container())
        showContent(*container);
    else if (m_provider.failureMessage().isEmpty())
        m_window.showScreen(new StoreLoadingView);
    else
        showFailure(m_provider.failureMessage());
}

void ReelhouseApp::showContent(StoreContainer& container)
{
    auto* content = new ContentView(container, m_preferences, m_favorites);
    content->performStartupBackupIfNeeded();
    connect(content, &ContentView::aboutRequested, this, &ReelhouseApp::showAbout);
    const auto settings = [this, &container, content] { showSettings(container, *content); };
    connect(content, &ContentView::settingsRequested, this, settings);
    connect(&m_window, &MainWindow::settingsRequested, content, settings);
    m_window.setSettingsEnabled(true);
    new EditCommands(container.context(), m_window.editMenu(), content);
    new MenuCommands(*content, m_window);
    m_window.showScreen(content);
}

void ReelhouseApp::showFailure(const QString& message)
{
    auto* screen = new StoreFailedView(message);
    connect(screen, &StoreFailedView::openDataFolderRequested, &m_delegate,
        &AppDelegate::openDataFolder);
    m_window.showScreen(screen);
}

void ReelhouseApp::showAbout()
{
    auto* sheet = new AboutView(Product::ofThisBuild(), &m_window);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
}

void ReelhouseApp::showKeys()
{
    auto* sheet = new KeysView(keySections(*m_window.menuBar()), &m_window);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
}

void ReelhouseApp::showSettings(StoreContainer& container, ContentView& content)
{
    const SettingsView::Desktop desktop{
        .openFolder = &FileBrowser::openFolder,
        .showFile =
            [](const QString& file) {
                FileBrowser::showFile(
                    file, ThemeService::runningSessionBus(), &FileBrowser::openFolder);
            },
    };
    auto* sheet
        = new SettingsView(container, m_preferences, Product::ofThisBuild(), desktop, &content);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    connect(sheet, &SettingsView::manageFavoritesRequested, &content,
        [&content, sheet] { content.manageFavorites(sheet); });
    sheet->open();
}

} // namespace reelhouse
