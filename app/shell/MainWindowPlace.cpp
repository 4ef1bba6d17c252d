#include "app/shell/MainWindowPlace.h"

#include "app/shell/MainWindow.h"
#include "app/shell/WindowDecoration.h"
#include "app/shell/WindowPlacement.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>

namespace reelhouse {

MainWindowPlace::MainWindowPlace(MainWindow& window)
    : QObject(&window)
    , m_window(window)
{
    window.winId();
    for (const QScreen* screen : QGuiApplication::screens())
        watch(screen);
    connect(qApp, &QGuiApplication::screenAdded, this, &MainWindowPlace::watch);
    // Later, when the window has been told which screen it is on now.
    connect(qApp, &QGuiApplication::screenRemoved, this, &MainWindowPlace::keepReachable,
        Qt::QueuedConnection);
    connect(qApp, &QGuiApplication::primaryScreenChanged, this, &MainWindowPlace::keepReachable,
        Qt::QueuedConnection);
    // The user moves it over: it stays where it is put, and may become small enough for there.
    connect(window.windowHandle(), &QWindow::screenChanged, this, [this](const QScreen* screen) {
        if (screen)
            limitTo(*screen, decorationOf(*m_window.windowHandle()));
    });
}

void MainWindowPlace::watch(const QScreen* screen)
{
    connect(screen, &QScreen::availableGeometryChanged, this, &MainWindowPlace::keepReachable,
        Qt::QueuedConnection);
}

void MainWindowPlace::placeOnMainScreen(QSize size)
{
    place(QGuiApplication::primaryScreen(), size);
}

void MainWindowPlace::place(QScreen* screen, QSize size)
{
    if (!screen) {
        m_window.resize(size);
        return;
    }
    const QMargins decoration = decorationOf(*m_window.windowHandle());
    limitTo(*screen, decoration);
    const QRect place = WindowPlacement::centred(
        size.expandedTo(m_window.minimumSize()), decoration, screen->availableGeometry());
    if (place.isEmpty())
        m_window.resize(size);
    else
        m_window.setGeometry(place);
}

void MainWindowPlace::limitTo(const QScreen& screen, const QMargins& decoration)
{
    const QSize chrome = m_window.chromeSize();
    m_window.setMinimumSize(
        WindowPlacement::minimumContentSize(decoration, chrome, screen.availableGeometry())
        + chrome);
}

void MainWindowPlace::keepReachable()
{
    QScreen* screen = m_window.screen();
    if (!screen)
        return;
    limitTo(*screen, decorationOf(*m_window.windowHandle()));
    const bool isFree = !m_window.isMinimized() && !m_window.isMaximized();
    if (isFree
        && !WindowPlacement::isReachable(m_window.frameGeometry(), screen->availableGeometry()))
        place(screen, m_window.size());
}

} // namespace reelhouse
