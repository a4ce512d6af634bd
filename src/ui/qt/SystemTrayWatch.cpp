// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/SystemTrayWatch.h"

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <QGuiApplication>
#include <string_view>
#include <utility>

namespace tovik::ui {

namespace {

constexpr std::uint8_t kSentByHand = 0x80; ///< of a response type

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

xcb_connection_t* connection() {
    const auto* const application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return application != nullptr ? application->connection() : nullptr;
}

std::uint32_t atomOf(xcb_connection_t* server, std::string_view name) {
    const auto asked =
        xcb_intern_atom(server, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, Free> answer(
        xcb_intern_atom_reply(server, asked, nullptr));
    return answer ? answer->atom : std::uint32_t{XCB_ATOM_NONE};
}

} // namespace

SystemTrayWatch::SystemTrayWatch(std::function<void()> changed) : changed_(std::move(changed)) {
    later_.setSingleShot(true);
    later_.setInterval(0);
    later_.callOnTimeout(&later_, [this] { look(); });
    xcb_connection_t* const server = connection();
    if (server == nullptr) {
        return;
    }
    selection_ = atomOf(server, "_NET_SYSTEM_TRAY_S0");
    manager_ = atomOf(server, "MANAGER");
    tray_ = find();
    qGuiApp->installNativeEventFilter(this);
}

SystemTrayWatch::~SystemTrayWatch() {
    if (manager_ != 0 && qGuiApp != nullptr) {
        qGuiApp->removeNativeEventFilter(this);
    }
}

std::uint32_t SystemTrayWatch::find() const {
    xcb_connection_t* const server = connection();
    const auto asked = xcb_get_selection_owner(server, selection_);
    const std::unique_ptr<xcb_get_selection_owner_reply_t, Free> answer(
        xcb_get_selection_owner_reply(server, asked, nullptr));
    if (!answer || answer->owner == XCB_NONE) {
        return 0;
    }
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(server, answer->owner, XCB_CW_EVENT_MASK, &events);
    xcb_flush(server);
    return answer->owner;
}

void SystemTrayWatch::look() {
    const std::uint32_t now = find();
    if (std::exchange(tray_, now) != now) {
        changed_();
    }
}

bool SystemTrayWatch::nativeEventFilter(const QByteArray& /*type*/, void* message,
                                        qintptr* /*result*/) {
    const auto* const event = static_cast<const xcb_generic_event_t*>(message);
    switch (event->response_type & ~kSentByHand) {
    case XCB_CLIENT_MESSAGE: {
        const auto* const told = static_cast<const xcb_client_message_event_t*>(message);
        if (told->type == manager_ && told->data.data32[1] == selection_) {
            later_.start();
        }
        break;
    }
    case XCB_DESTROY_NOTIFY:
        if (static_cast<const xcb_destroy_notify_event_t*>(message)->window == tray_) {
            later_.start();
        }
        break;
    default:
        break;
    }
    return false;
}

} // namespace tovik::ui
