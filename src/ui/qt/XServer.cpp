// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/XServer.h"

#include <QGuiApplication>

namespace tovik::ui {

xcb_connection_t* xServer() {
    const auto* const application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return application != nullptr ? application->connection() : nullptr;
}

xcb_intern_atom_cookie_t askForAtom(xcb_connection_t* server, std::string_view name) {
    return xcb_intern_atom(server, 0, static_cast<std::uint16_t>(name.size()), name.data());
}

xcb_atom_t atomOf(xcb_connection_t* server, xcb_intern_atom_cookie_t asked) {
    const XReply<xcb_intern_atom_reply_t> answer(xcb_intern_atom_reply(server, asked, nullptr));
    return answer ? answer->atom : xcb_atom_t{XCB_ATOM_NONE};
}

} // namespace tovik::ui
