#include "tests/support/Screen.h"

#include "tests/support/KeySymbols.h"
#include "tests/support/Waiting.h"

#include <QtCore/QDeadlineTimer>

#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <thread>
#include <xcb/xtest.h>

namespace reelhouse::tests {

namespace {

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};

template <typename Reply>
std::unique_ptr<Reply, Free> owned(Reply* reply)
{
    return std::unique_ptr<Reply, Free>(reply);
}

constexpr uint8_t leftButton = 1;
// A blinking text caret is not movement.
constexpr int caretPixels = 100;
constexpr int widestCaret = 6; ///< On a screen of many pixels.

bool isSame(const QImage& before, const QImage& after)
{
    if (before.size() != after.size())
        return false;
    int different = 0;
    int left = after.width();
    int right = -1;
    for (int y = 0; y < after.height(); ++y) {
        if (std::memcmp(
                before.constScanLine(y), after.constScanLine(y), size_t(after.bytesPerLine()))
            == 0)
            continue;
        for (int x = 0; x < after.width(); ++x) {
            if (before.pixel(x, y) == after.pixel(x, y))
                continue;
            ++different;
            left = std::min(left, x);
            right = std::max(right, x);
        }
    }
    return different <= caretPixels || right - left < widestCaret;
}

pid_t processOf(const QByteArray& property)
{
    uint32_t processId = 0;
    if (property.size() == sizeof processId)
        std::memcpy(&processId, property.constData(), sizeof processId);
    return static_cast<pid_t>(processId);
}

} // namespace

Screen::Screen(const QByteArray& display)
    : m_connection(xcb_connect(display.isEmpty() ? nullptr : display.constData(), nullptr))
{
    if (!isConnected())
        return;
    m_screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
    m_titleAtom = atom("_NET_WM_NAME");
    m_processAtom = atom("_NET_WM_PID");
    m_managerAtom = atom("_NET_SUPPORTING_WM_CHECK");
}

Screen::~Screen()
{
    xcb_disconnect(m_connection);
}

bool Screen::isConnected() const
{
    return xcb_connection_has_error(m_connection) == 0;
}

bool Screen::hasWindowManager() const
{
    return !property(m_screen->root, m_managerAtom).isEmpty();
}

QRect Screen::area() const
{
    return {0, 0, m_screen->width_in_pixels, m_screen->height_in_pixels};
}

QList<Screen::Window> Screen::windows() const
{
    QList<Window> found;
    collect(m_screen->root, found);
    return found;
}

std::optional<Screen::Window> Screen::find(const QString& title, pid_t processId) const
{
    const QList<Window> all = windows();
    for (auto window = all.crbegin(); window != all.crend(); ++window) {
        if (window->title == title && (processId == 0 || window->processId == processId))
            return *window;
    }
    return std::nullopt;
}

QImage Screen::picture(const QRect& area) const
{
    const auto image = owned(xcb_get_image_reply(m_connection,
        xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_screen->root,
            static_cast<int16_t>(area.x()), static_cast<int16_t>(area.y()),
            static_cast<uint16_t>(area.width()), static_cast<uint16_t>(area.height()), ~0U),
        nullptr));
    if (!image)
        return {};
    return QImage(
        xcb_get_image_data(image.get()), area.width(), area.height(), QImage::Format_RGB32)
        .copy();
}

QSize Screen::smallestSize(const Window& window) const
{
    // As the window managers' conventions lay it out: flags, four unused numbers, then the size.
    constexpr uint32_t hasSmallest = 1U << 4;
    std::array<uint32_t, 7> hints{};
    const QByteArray said = property(window.id, XCB_ATOM_WM_NORMAL_HINTS);
    if (said.size() < qsizetype(sizeof hints))
        return {};
    std::memcpy(hints.data(), said.constData(), sizeof hints);
    return (hints[0] & hasSmallest) != 0 ? QSize(int(hints[5]), int(hints[6])) : QSize();
}

bool Screen::waitForRest(const QRect& area, std::chrono::milliseconds rest) const
{
    constexpr std::chrono::milliseconds step(50);
    const QDeadlineTimer deadline(std::chrono::minutes(1));
    QImage before = picture(area);
    // By the clock: a picture of a large area takes its time, too.
    QDeadlineTimer end(rest);
    while (!end.hasExpired()) {
        if (deadline.hasExpired())
            return false;
        std::this_thread::sleep_for(step);
        QImage now = picture(area);
        if (now.isNull() || !isSame(before, now))
            end.setRemainingTime(rest);
        before = std::move(now);
    }
    return true;
}

void Screen::movePointer(const QPoint& position)
{
    fake(XCB_MOTION_NOTIFY, 0, position);
}

void Screen::click()
{
    fake(XCB_BUTTON_PRESS, leftButton, {});
    fake(XCB_BUTTON_RELEASE, leftButton, {});
}

void Screen::pressReturn()
{
    pressKey(Key::enter);
}

void Screen::close(const Window& window)
{
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window.id;
    message.type = atom("WM_PROTOCOLS");
    message.data.data32[0] = atom("WM_DELETE_WINDOW");
    message.data.data32[1] = XCB_CURRENT_TIME;
    xcb_send_event(m_connection, 0, window.id, XCB_EVENT_MASK_NO_EVENT,
        reinterpret_cast<const char*>(&message));
    xcb_flush(m_connection);
}

void Screen::pressKey(xcb_keysym_t key, const QList<xcb_keysym_t>& held)
{
    for (const xcb_keysym_t modifier : held)
        fake(XCB_KEY_PRESS, keycodeOf(modifier), {});
    const xcb_keycode_t code = keycodeOf(key);
    fake(XCB_KEY_PRESS, code, {});
    fake(XCB_KEY_RELEASE, code, {});
    for (const xcb_keysym_t modifier : held)
        fake(XCB_KEY_RELEASE, keycodeOf(modifier), {});
}

void Screen::type(const QByteArray& text)
{
    // The names of the plain keys are their letters.
    for (const char letter : text)
        pressKey(static_cast<xcb_keysym_t>(letter));
}

QString Screen::clipboardText() const
{
    const xcb_window_t receiver = xcb_generate_id(m_connection);
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, receiver, m_screen->root, 0, 0, 1, 1, 0,
        XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    const xcb_atom_t answer = atom("SPOOLWRIGHT_TEST_TEXT");
    xcb_convert_selection(
        m_connection, receiver, atom("CLIPBOARD"), atom("UTF8_STRING"), answer, XCB_CURRENT_TIME);
    xcb_flush(m_connection);
    const auto isAnswered = [this] {
        const auto event = owned(xcb_poll_for_event(m_connection));
        return event && (event->response_type & 0x7f) == XCB_SELECTION_NOTIFY;
    };
    QString text = waitUntil(isAnswered, std::chrono::seconds(2))
        ? QString::fromUtf8(property(receiver, answer))
        : QString();
    xcb_destroy_window(m_connection, receiver);
    xcb_flush(m_connection);
    return text;
}

xcb_keycode_t Screen::keycodeOf(xcb_keysym_t key) const
{
    const xcb_setup_t* setup = xcb_get_setup(m_connection);
    const int count = setup->max_keycode - setup->min_keycode + 1;
    const auto mapping = owned(xcb_get_keyboard_mapping_reply(m_connection,
        xcb_get_keyboard_mapping(m_connection, setup->min_keycode, static_cast<uint8_t>(count)),
        nullptr));
    if (!mapping)
        return 0;
    const xcb_keysym_t* names = xcb_get_keyboard_mapping_keysyms(mapping.get());
    for (int place = 0; place < count; ++place) {
        if (names[qsizetype(place) * mapping->keysyms_per_keycode] == key)
            return static_cast<xcb_keycode_t>(setup->min_keycode + place);
    }
    return 0;
}

void Screen::collect(xcb_window_t parent, QList<Window>& found) const
{
    const auto tree
        = owned(xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, parent), nullptr));
    if (!tree)
        return;
    const xcb_window_t* children = xcb_query_tree_children(tree.get());
    for (int index = 0; index < xcb_query_tree_children_length(tree.get()); ++index) {
        const xcb_window_t child = children[index];
        const auto attributes = owned(xcb_get_window_attributes_reply(
            m_connection, xcb_get_window_attributes(m_connection, child), nullptr));
        if (!attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE)
            continue;
        const QByteArray name = property(child, m_titleAtom);
        if (name.isEmpty()) {
            collect(child, found); // A window manager's frame has the window inside.
            continue;
        }
        const auto size = owned(
            xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, child), nullptr));
        const auto corner = owned(xcb_translate_coordinates_reply(m_connection,
            xcb_translate_coordinates(m_connection, child, m_screen->root, 0, 0), nullptr));
        if (size && corner)
            found.append({child, processOf(property(child, m_processAtom)), QString::fromUtf8(name),
                {corner->dst_x, corner->dst_y, size->width, size->height}});
    }
}

xcb_atom_t Screen::atom(const QByteArray& name) const
{
    const auto length = static_cast<uint16_t>(name.size());
    const auto reply = owned(xcb_intern_atom_reply(
        m_connection, xcb_intern_atom(m_connection, 0, length, name.constData()), nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

QByteArray Screen::property(xcb_window_t window, xcb_atom_t name) const
{
    const auto reply = owned(xcb_get_property_reply(m_connection,
        xcb_get_property(m_connection, 0, window, name, XCB_ATOM_ANY, 0, 256), nullptr));
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
        xcb_get_property_value_length(reply.get())};
}

void Screen::fake(uint8_t type, uint8_t detail, const QPoint& position)
{
    xcb_test_fake_input(m_connection, type, detail, XCB_CURRENT_TIME, m_screen->root,
        static_cast<int16_t>(position.x()), static_cast<int16_t>(position.y()), 0);
    xcb_flush(m_connection);
}

} // namespace reelhouse::tests
