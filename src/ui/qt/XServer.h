// SPDX-License-Identifier: GPL-3.0-or-later
// For the files that speak to the X server themselves, over the connection that Qt has. Interface
// thread.
#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string_view>

namespace tovik::ui {

/// Null where the window system is not X11.
[[nodiscard]] xcb_connection_t* xServer();

/// What libxcb hands out is freed like any memory of C.
struct FreeReply {
    void operator()(void* memory) const { std::free(memory); }
};

template <typename Reply>
using XReply = std::unique_ptr<Reply, FreeReply>;

/// Asks for the number of a name; the answer need not be waited for.
[[nodiscard]] xcb_intern_atom_cookie_t askForAtom(xcb_connection_t* server, std::string_view name);

/// The answer, waited for; none where the server has none.
[[nodiscard]] xcb_atom_t atomOf(xcb_connection_t* server, xcb_intern_atom_cookie_t asked);

} // namespace tovik::ui
