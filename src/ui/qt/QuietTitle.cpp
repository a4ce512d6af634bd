// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/QuietTitle.h"

#include "ui/qt/XServer.h"

#include <QByteArray>
#include <string_view>

namespace tovik::ui {

namespace {

constexpr std::string_view kName = "_NET_WM_NAME";
constexpr std::string_view kUtf8 = "UTF8_STRING";
constexpr std::uint8_t kBytes = 8; ///< bits of an element of a text

void listenTo(xcb_connection_t* server, xcb_window_t window, std::uint32_t events) {
    xcb_change_window_attributes(server, window, XCB_CW_EVENT_MASK, &events);
}

} // namespace

bool QuietTitle::set(const QWindow& window, const QString& title) {
    xcb_connection_t* const server = xServer();
    if (server == nullptr) {
        return false;
    }
    const auto id = static_cast<xcb_window_t>(window.winId());
    if (known_.window != id) {
        const auto name = askForAtom(server, kName);
        const auto utf8 = askForAtom(server, kUtf8);
        const auto attributes = xcb_get_window_attributes(server, id);
        known_ = {.window = id, .name = atomOf(server, name), .utf8 = atomOf(server, utf8)};
        const XReply<xcb_get_window_attributes_reply_t> answer(
            xcb_get_window_attributes_reply(server, attributes, nullptr));
        if (answer) {
            known_.events = answer->your_event_mask;
        } else {
            known_.name = XCB_ATOM_NONE;
        }
    }
    if (known_.name == XCB_ATOM_NONE || known_.utf8 == XCB_ATOM_NONE) {
        return false;
    }
    const QByteArray bytes = title.toUtf8();
    // Nobody else changes anything meanwhile: a change of the window's state would go unheard.
    xcb_grab_server(server);
    listenTo(server, id, known_.events & ~std::uint32_t{XCB_EVENT_MASK_PROPERTY_CHANGE});
    for (const xcb_atom_t property : {known_.name, xcb_atom_t{XCB_ATOM_WM_NAME}}) {
        xcb_change_property(server, XCB_PROP_MODE_REPLACE, id, property, known_.utf8, kBytes,
                            static_cast<std::uint32_t>(bytes.size()), bytes.constData());
    }
    listenTo(server, id, known_.events);
    xcb_ungrab_server(server);
    xcb_flush(server);
    return true;
}

} // namespace tovik::ui
