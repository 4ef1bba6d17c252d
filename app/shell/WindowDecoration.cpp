#include "app/shell/WindowDecoration.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QThread>
#include <QtGui/QGuiApplication>
#include <QtGui/QWindow>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>
#include <xcb/xcb.h>

namespace reelhouse {

namespace {

constexpr int patienceMs = 40;

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
template <class Reply>
using ReplyPointer = std::unique_ptr<Reply, FreeReply>;

xcb_atom_t atom(xcb_connection_t* connection, std::string_view name)
{
    const auto cookie = xcb_intern_atom(connection, 1, quint16(name.size()), name.data());
    const ReplyPointer<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

std::vector<quint32> property(
    xcb_connection_t* connection, xcb_window_t window, xcb_atom_t name, xcb_atom_t type)
{
    const auto cookie = xcb_get_property(connection, 0, window, name, type, 0, 4096);
    const ReplyPointer<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection, cookie, nullptr));
    if (!reply || reply->format != 32)
        return {};
    std::vector<quint32> values(reply->value_len);
    std::memcpy(values.data(), xcb_get_property_value(reply.get()), values.size() * 4);
    return values;
}

std::optional<QMargins> requestedExtents(xcb_connection_t* connection, xcb_window_t window)
{
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const xcb_atom_t supported = atom(connection, "_NET_SUPPORTED");
    const xcb_atom_t request = atom(connection, "_NET_REQUEST_FRAME_EXTENTS");
    const xcb_atom_t extents = atom(connection, "_NET_FRAME_EXTENTS");
    if (request == XCB_ATOM_NONE || extents == XCB_ATOM_NONE)
        return std::nullopt;
    const auto features = property(connection, root, supported, XCB_ATOM_ATOM);
    if (std::ranges::find(features, request) == features.end())
        return std::nullopt;

    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = request;
    xcb_send_event(connection, 0, root,
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
        reinterpret_cast<const char*>(&message));
    xcb_flush(connection);

    QElapsedTimer waited;
    waited.start();
    do {
        const auto sides = property(connection, window, extents, XCB_ATOM_CARDINAL);
        if (sides.size() == 4) // left, right, top, bottom
            return QMargins(int(sides[0]), int(sides[2]), int(sides[1]), int(sides[3]));
        QThread::msleep(1);
    } while (waited.elapsed() < patienceMs);
    return std::nullopt;
}

} // namespace

QMargins decorationOf(QWindow& window)
{
    const QMargins known = window.frameMargins();
    if (!known.isNull() || window.isVisible())
        return known;
    const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || !x11->connection())
        return {};
    const auto extents = requestedExtents(x11->connection(), xcb_window_t(window.winId()));
    const qreal ratio = window.devicePixelRatio();
    return extents ? (QMarginsF(*extents) / ratio).toMargins() : QMargins();
}

} // namespace reelhouse
