#pragma once

#include "app/library/FilterFavoritesStore.h"
#include "app/shell/AppDelegate.h"
#include "app/shell/MainWindow.h"
#include "app/shell/UnixSignals.h"
#include "app/store/StorePaths.h"
#include "app/store/StoreProvider.h"
#include "app/ui/ContextMenuKey.h"
#include "app/ui/FocusRing.h"
#include "app/ui/ThemeService.h"
#include "core/preferences/Preferences.h"

namespace reelhouse {

class ContentView;
class SingleInstance;

/// The composition root: makes every service once, hands them down, and chooses the screen that the
/// state of the store calls for.
class ReelhouseApp final : public QObject {
    Q_OBJECT

public:
    /// `paths` says where the stock lies, `preferencesFile` where the preferences are kept.
    /// `instance` is this program's claim to that stock: it tells when a second launch asks for the
    /// window.
    ReelhouseApp(const StorePaths& paths, const QString& preferencesFile, SingleInstance& instance);

    /// Runs the program until the user or the system ends it; returns its exit status.
    int run();

private:
    void showScreen();
    void showContent(StoreContainer& container);
    void showFailure(const QString& message);
    void showAbout();
    void showKeys();
    void showSettings(StoreContainer& container, ContentView& content);

    Preferences m_preferences;
    FilterFavoritesStore m_favorites;
    ThemeService m_theme;
    ContextMenuKey m_contextMenuKey;
    FocusRingWatch m_focusRings;
    StoreProvider m_provider;
    MainWindow m_window;
    AppDelegate m_delegate;
    UnixSignals m_signals;
};

} // namespace reelhouse
