// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/QuietTitle.h"

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <QByteArray>
#include <QGuiApplication>
#include <string_view>

namespace tovik::ui {

namespace {

constexpr std::string_view kName = "_NET_WM_NAME";
constexpr std::string_view kUtf8 = "UTF8_STRING";
constexpr std::uint8_t kBytes = 8; ///< bits of an element of a text

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

xcb_connection_t* connection() {
    const auto* const application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return application != nullptr ? application->connection() : nullptr;
}

xcb_intern_atom_cookie_t askForAtom(xcb_connection_t* server, std::string_view name) {
    return xcb_intern_atom(server, 0, static_cast<std::uint16_t>(name.size()), name.data());
}

xcb_atom_t atom(xcb_connection_t* server, xcb_intern_atom_cookie_t asked) {
    const std::unique_ptr<xcb_intern_atom_reply_t, Free> answer(
        xcb_intern_atom_reply(server, asked, nullptr));
    return answer ? answer->atom : xcb_atom_t{XCB_ATOM_NONE};
}

void listenTo(xcb_connection_t* server, xcb_window_t window, std::uint32_t events) {
    xcb_change_window_attributes(server, window, XCB_CW_EVENT_MASK, &events);
}

} // namespace

bool QuietTitle::set(const QWindow& window, const QString& title) {
    xcb_connection_t* const server = connection();
    if (server == nullptr) {
        return false;
    }
    const auto id = static_cast<xcb_window_t>(window.winId());
    if (known_.window != id) {
        const auto name = askForAtom(server, kName);
        const auto utf8 = askForAtom(server, kUtf8);
        const auto attributes = xcb_get_window_attributes(server, id);
        known_ = {.window = id, .name = atom(server, name), .utf8 = atom(server, utf8)};
        const std::unique_ptr<xcb_get_window_attributes_reply_t, Free> answer(
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
