// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/NativeShape.h"

#include "ui/qt/SystemTrayWatch.h"
#include "ui/qt/XServer.h"

#include <xcb/shape.h>

#include <string>
#include <vector>

namespace tovik::ui {

namespace {

/// Who has this selection composes the screen, says the published convention of desktops.
constexpr const char* kCompositor = "_NET_WM_CM_S";

} // namespace

bool hasNativeShape() {
    xcb_connection_t* const server = xServer();
    return server != nullptr && xcb_get_extension_data(server, &xcb_shape_id)->present != 0;
}

bool windowsAreBlended() {
    xcb_connection_t* const server = xServer();
    if (server == nullptr) {
        return true;
    }
    const std::string name = kCompositor + std::to_string(screenOfDisplay(nullptr));
    const xcb_atom_t selection = atomOf(server, askForAtom(server, name));
    const XReply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(server, xcb_get_selection_owner(server, selection), nullptr));
    return owner && owner->owner != XCB_NONE;
}

void setNativeShape(const QWindow& window, const QRegion& pixels) {
    std::vector<xcb_rectangle_t> rectangles;
    for (const QRect& one : pixels) {
        rectangles.push_back(
            {static_cast<std::int16_t>(one.left()), static_cast<std::int16_t>(one.top()),
             static_cast<std::uint16_t>(one.width()), static_cast<std::uint16_t>(one.height())});
    }
    xcb_shape_rectangles(xServer(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING,
                         XCB_CLIP_ORDERING_YX_BANDED, static_cast<xcb_window_t>(window.winId()), 0,
                         0, static_cast<std::uint32_t>(rectangles.size()), rectangles.data());
}

} // namespace tovik::ui
