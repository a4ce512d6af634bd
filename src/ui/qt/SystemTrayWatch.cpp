// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/SystemTrayWatch.h"

#include "ui/qt/XServer.h"

#include <xcb/xcbext.h>

#include <QGuiApplication>
#include <QWidget>
#include <utility>

namespace tovik::ui {

namespace {

constexpr std::uint8_t kSentByHand = 0x80; ///< of a response type
constexpr int kCollectMs = 2;

/// Qt's window for an icon in such a tray.
constexpr const char* kIconWindow = "QSystemTrayIconSys";

bool isRoot(std::uint32_t window) {
    for (auto screen = xcb_setup_roots_iterator(xcb_get_setup(xServer())); screen.rem > 0;
         xcb_screen_next(&screen)) {
        if (screen.data->root == window) {
            return true;
        }
    }
    return false;
}

} // namespace

int screenOfDisplay(const char* display) {
    char* host = nullptr;
    int number = 0;
    int screen = 0;
    if (xcb_parse_display(display, &host, &number, &screen) == 0) {
        return 0;
    }
    const XReply<char> owned(host);
    return screen;
}

SystemTrayWatch::SystemTrayWatch(std::function<void()> changed) : changed_(std::move(changed)) {
    collector_.setInterval(kCollectMs);
    collector_.callOnTimeout(&collector_, [this] { collect(); });
    later_.setSingleShot(true);
    later_.setInterval(0);
    later_.callOnTimeout(&later_, [this] { askOwner(); });
    tell_.setSingleShot(true);
    tell_.setInterval(0);
    tell_.callOnTimeout(&tell_, [this] { changed_(); });
    if (xServer() == nullptr) {
        return;
    }
    qGuiApp->installNativeEventFilter(this);
    askAtom("MANAGER", [this](std::uint32_t atom) { manager_ = atom; });
    askAtom("_NET_SYSTEM_TRAY_S" + std::to_string(screenOfDisplay(nullptr)),
            [this](std::uint32_t atom) {
                selection_ = atom;
                askOwner();
            });
    xcb_flush(xServer());
}

SystemTrayWatch::~SystemTrayWatch() {
    if (qGuiApp == nullptr) {
        return;
    }
    qGuiApp->removeNativeEventFilter(this);
    if (xcb_connection_t* const server = xServer(); server != nullptr) {
        for (const Question& question : open_) {
            xcb_discard_reply(server, question.sequence);
        }
    }
}

void SystemTrayWatch::ask(unsigned int sequence, std::function<void(const void*)> answer) {
    open_.push_back({sequence, std::move(answer)});
    collector_.start();
}

void SystemTrayWatch::askAtom(const std::string& name, std::function<void(std::uint32_t)> answer) {
    const auto asked = askForAtom(xServer(), name);
    ask(asked.sequence, [answer = std::move(answer)](const void* reply) {
        answer(reply != nullptr ? static_cast<const xcb_intern_atom_reply_t*>(reply)->atom
                                : std::uint32_t{XCB_ATOM_NONE});
    });
}

void SystemTrayWatch::askOwner() {
    const auto asked = xcb_get_selection_owner(xServer(), selection_);
    ask(asked.sequence, [this](const void* reply) {
        found(reply != nullptr ? static_cast<const xcb_get_selection_owner_reply_t*>(reply)->owner
                               : std::uint32_t{XCB_NONE});
    });
    xcb_flush(xServer());
}

void SystemTrayWatch::collect() {
    while (!open_.empty()) {
        void* reply = nullptr;
        xcb_generic_error_t* error = nullptr;
        if (xcb_poll_for_reply(xServer(), open_.front().sequence, &reply, &error) == 0) {
            return;
        }
        const XReply<void> answer(reply);
        const XReply<xcb_generic_error_t> failure(error);
        const Question question = std::move(open_.front());
        open_.pop_front();
        question.answer(answer.get());
    }
    collector_.stop();
}

void SystemTrayWatch::found(std::uint32_t tray) {
    if (tray != XCB_NONE) {
        // To be told of its end.
        const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(xServer(), tray, XCB_CW_EVENT_MASK, &events);
        xcb_flush(xServer());
    }
    if (std::exchange(tray_, tray) != tray) {
        tell_.start();
    }
}

bool SystemTrayWatch::docked() const {
    return docked_ != 0 && QWidget::find(docked_) != nullptr;
}

void SystemTrayWatch::reparented(std::uint32_t window, std::uint32_t parent) {
    const QWidget* const ours = QWidget::find(window);
    if (ours != nullptr && ours->inherits(kIconWindow)) {
        docked_ = isRoot(parent) ? 0 : window;
        tell_.start();
    }
}

bool SystemTrayWatch::nativeEventFilter(const QByteArray& /*type*/, void* message,
                                        qintptr* /*result*/) {
    const auto* const event = static_cast<const xcb_generic_event_t*>(message);
    switch (event->response_type & ~kSentByHand) {
    case XCB_CLIENT_MESSAGE: {
        const auto* const told = static_cast<const xcb_client_message_event_t*>(message);
        if (selection_ != 0 && told->type == manager_ && told->data.data32[1] == selection_) {
            later_.start();
        }
        break;
    }
    case XCB_DESTROY_NOTIFY:
        if (tray_ != 0 &&
            static_cast<const xcb_destroy_notify_event_t*>(message)->window == tray_) {
            later_.start();
        }
        break;
    case XCB_REPARENT_NOTIFY: {
        const auto* const moved = static_cast<const xcb_reparent_notify_event_t*>(message);
        reparented(moved->window, moved->parent);
        break;
    }
    default:
        break;
    }
    return false;
}

} // namespace tovik::ui
