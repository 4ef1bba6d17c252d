#pragma once

#include <QtCore/QMargins>
#include <QtCore/QObject>
#include <QtCore/QSize>

class QScreen;

namespace reelhouse {

class MainWindow;

/// Where the main window stands: in the middle of the main screen at first, and within the user's
/// reach when screens come, go or change their size.
class MainWindowPlace final : public QObject {
    Q_OBJECT

public:
    /// Belongs to `window`. Makes the native window, so that its decoration can be asked for.
    explicit MainWindowPlace(MainWindow& window);

    /// Centres the window on the main screen, as large as `size` where that has the room.
    void placeOnMainScreen(QSize size);

private:
    void watch(const QScreen* screen);
    void place(QScreen* screen, QSize size);
    void limitTo(const QScreen& screen, const QMargins& decoration);
    void keepReachable();

    MainWindow& m_window;
};

} // namespace reelhouse
