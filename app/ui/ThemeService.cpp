#include "app/ui/ThemeService.h"

#include "app/ui/Palette.h"
#include "app/ui/SpoolwrightStyle.h"

#include <QtCore/QStandardPaths>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

namespace reelhouse {

namespace {

ColorScheme platformScheme()
{
    const QColor ground = QApplication::palette().color(QPalette::Window);
    return ground.lightnessF() < 0.5F ? ColorScheme::Dark : ColorScheme::Light;
}

} // namespace

ThemeService::ThemeService(const QDBusConnection& bus, QObject* parent)
    : QObject(parent)
    , m_fallback(platformScheme())
    , m_style(new SpoolwrightStyle(themeFor({}, m_fallback)))
    , m_desktop(bus)
{
    QApplication::setStyle(m_style);
    QApplication::setPalette(paletteOf(m_style->theme()));
    connect(&m_desktop, &DesktopAppearance::changed, this, &ThemeService::follow);
}

QDBusConnection ThemeService::runningSessionBus()
{
    const QString socket
        = QStandardPaths::locate(QStandardPaths::RuntimeLocation, QStringLiteral("bus"));
    if (socket.isEmpty() && qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return QDBusConnection(QString());
    return QDBusConnection::sessionBus();
}

void ThemeService::whenSettled(std::chrono::milliseconds atMost, const std::function<void()>& act)
{
    auto* patience = new QTimer(this);
    patience->setSingleShot(true);
    connect(patience, &QTimer::timeout, this, [patience, act] {
        patience->deleteLater();
        act();
    });
    connect(&m_desktop, &DesktopAppearance::settled, patience, [patience] { patience->start(0); });
    patience->start(m_desktop.isSettled() ? std::chrono::milliseconds(0) : atMost);
}

Theme ThemeService::themeFor(const Appearance& appearance, ColorScheme fallback)
{
    const bool isDark = appearance.colorScheme.value_or(fallback) == ColorScheme::Dark;
    const Theme theme = isDark ? darkTheme() : lightTheme();
    return appearance.wantsHighContrast ? withHighContrast(theme) : theme;
}

void ThemeService::follow()
{
    const Theme theme = themeFor(m_desktop.appearance(), m_fallback);
    if (theme == m_style->theme())
        return;
    m_style->setTheme(theme);
    QApplication::setPalette(paletteOf(theme));
    for (QWidget* window : QApplication::topLevelWidgets())
        window->update();
    emit themeChanged();
}

} // namespace reelhouse
