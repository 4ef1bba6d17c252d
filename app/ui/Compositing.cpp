#include "app/ui/Compositing.h"

#include <QtGui/QGuiApplication>

#include <QtGui/qguiapplication_platform.h>
#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};

/// X11 keeps the number of the default screen where only Xlib finds it, but a server with more
/// than one screen is history: a compositing manager on any of them counts.
bool hasCompositingManager(xcb_connection_t* connection)
{
    const int screens = xcb_setup_roots_length(xcb_get_setup(connection));
    for (int screen = 0; screen < screens; ++screen) {
        const QByteArray name = "_NET_WM_CM_S" + QByteArray::number(screen);
        const std::unique_ptr<xcb_intern_atom_reply_t, FreeReply> atom(xcb_intern_atom_reply(
            connection,
            xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.constData()),
            nullptr));
        if (!atom)
            continue;
        const std::unique_ptr<xcb_get_selection_owner_reply_t, FreeReply> owner(
            xcb_get_selection_owner_reply(
                connection, xcb_get_selection_owner(connection, atom->atom), nullptr));
        if (owner && owner->owner != XCB_NONE)
            return true;
    }
    return false;
}

} // namespace

bool windowsAreComposited()
{
    if (QGuiApplication::platformName().startsWith("wayland"_L1))
        return true;
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // The platform without a screen knows of X11 too, but is connected to nothing.
    return x11 != nullptr && x11->connection() != nullptr
        && hasCompositingManager(x11->connection());
}

} // namespace reelhouse
