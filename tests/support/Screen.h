#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtGui/QImage>

#include <optional>
#include <xcb/xcb.h>

namespace reelhouse::tests {

/// An X screen seen and worked from outside, as a user does it: windows by their title, pictures,
/// the mouse. All positions are pixels of the screen.
class Screen final {
public:
    struct Window {
        xcb_window_t id;
        QString title;
        QRect area; ///< Of the window's content, without the window manager's frame.
    };

    /// `display` is what DISPLAY would hold; empty means DISPLAY itself.
    explicit Screen(const QByteArray& display = {});
    ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    bool isConnected() const;
    QRect area() const;

    /// Every visible window that has a title, from the lowest to the topmost.
    QList<Window> windows() const;
    /// The topmost visible window with this title.
    std::optional<Window> find(const QString& title) const;
    /// Null where `area` leaves the screen.
    QImage picture(const QRect& area) const;

    void movePointer(const QPoint& position);
    /// Presses and releases the left button where the pointer is.
    void click();

private:
    void collect(xcb_window_t parent, QList<Window>& found) const;
    QString title(xcb_window_t window) const;
    void fake(uint8_t type, uint8_t detail, const QPoint& position);

    xcb_connection_t* m_connection;
    const xcb_screen_t* m_screen = nullptr;
    xcb_atom_t m_titleAtom = XCB_ATOM_NONE;
};

} // namespace reelhouse::tests
