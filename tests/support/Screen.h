#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtGui/QImage>

#include <chrono>
#include <optional>
#include <sys/types.h>
#include <xcb/xcb.h>

namespace reelhouse::tests {

/// An X screen seen and worked from outside, as a user does it: windows by their title, pictures,
/// the mouse. All positions are pixels of the screen.
class Screen final {
public:
    struct Window {
        xcb_window_t id;
        pid_t processId; ///< Of its program; 0 when the window does not say.
        QString title;
        QRect area; ///< Of the window's content, without the window manager's frame.
    };

    /// `display` is what DISPLAY would hold; empty means DISPLAY itself.
    explicit Screen(const QByteArray& display = {});
    ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    bool isConnected() const;
    bool hasWindowManager() const;
    QRect area() const;

    /// Every visible window that has a title, from the lowest to the topmost.
    QList<Window> windows() const;
    /// The topmost visible window with this title; of this program, unless `processId` is 0.
    std::optional<Window> find(const QString& title, pid_t processId = 0) const;
    /// Null where `area` leaves the screen.
    QImage picture(const QRect& area) const;
    /// The smallest size that the program lets its window be given; invalid when it says nothing.
    QSize smallestSize(const Window& window) const;
    /// Waits until nothing but a text caret has moved in `area` for `rest`; false after a minute.
    bool waitForRest(
        const QRect& area, std::chrono::milliseconds rest = std::chrono::milliseconds(700)) const;

    void movePointer(const QPoint& position);
    /// Presses and releases the left button where the pointer is.
    void click();
    /// Presses and releases Return in the window that has the keyboard.
    void pressReturn();
    /// Asks the program to close a window, as its title bar does.
    void close(const Window& window);
    /// Presses and releases a key of the keyboard while others are held, such as XK_Return with
    /// XK_Control_L. It goes to the window that has the focus.
    void pressKey(xcb_keysym_t key, const QList<xcb_keysym_t>& held = {});
    /// Types small letters, digits, spaces and the signs of plain keys, such as '.' and '/'.
    void type(const QByteArray& text);
    /// The text that a program put on the clipboard; empty when there is none.
    QString clipboardText() const;

private:
    void collect(xcb_window_t parent, QList<Window>& found) const;
    xcb_atom_t atom(const QByteArray& name) const;
    QByteArray property(xcb_window_t window, xcb_atom_t name) const;
    xcb_keycode_t keycodeOf(xcb_keysym_t key) const;
    void fake(uint8_t type, uint8_t detail, const QPoint& position);

    xcb_connection_t* m_connection;
    const xcb_screen_t* m_screen = nullptr;
    xcb_atom_t m_titleAtom = XCB_ATOM_NONE;
    xcb_atom_t m_processAtom = XCB_ATOM_NONE;
    xcb_atom_t m_managerAtom = XCB_ATOM_NONE;
};

} // namespace reelhouse::tests
