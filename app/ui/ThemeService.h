#pragma once

#include "app/ui/DesktopAppearance.h"
#include "app/ui/Theme.h"

#include <chrono>
#include <functional>

namespace reelhouse {

class SpoolwrightStyle;

/// Installs the style and the palette of the program and keeps them in step with the desktop:
/// its portal decides between light and dark, else the lightness of the palette that the platform
/// had given. Made once, after the QApplication and before the first widget; outlived only by it.
class ThemeService final : public QObject {
    Q_OBJECT

public:
    explicit ThemeService(
        const QDBusConnection& bus = runningSessionBus(), QObject* parent = nullptr);

    /// The session bus, not connected where no session has one: asking for it would start one,
    /// which takes longer than opening the stock, and nobody would answer there.
    static QDBusConnection runningSessionBus();

    /// Calls `act` once, from the event loop, as soon as the desktop has said how it looks, or
    /// after `atMost` where it is slow: what is first shown then has its colours from the start.
    void whenSettled(std::chrono::milliseconds atMost, const std::function<void()>& act);

    /// The theme that goes with an appearance, `fallback` where it leaves the scheme open.
    static Theme themeFor(const Appearance& appearance, ColorScheme fallback);

signals:
    /// Everything standing on the screen is about to be painted in `currentTheme()`. Only for what
    /// keeps something made from a colour; what asks while painting need not listen.
    void themeChanged();

private:
    void follow();

    ColorScheme m_fallback; ///< Read before our own palette hides the platform's.
    SpoolwrightStyle* m_style; ///< Belongs to the application.
    DesktopAppearance m_desktop;
};

} // namespace reelhouse
