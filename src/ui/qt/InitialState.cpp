// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/InitialState.h"

#include "ui/qt/XServer.h"

#include <algorithm>
#include <array>

namespace tovik::ui {

namespace {

// The published layout of the hints: nine numbers, of which flags say which ones count.
constexpr std::uint32_t kHints = 9;
constexpr std::size_t kFlags = 0;
constexpr std::size_t kInitialState = 2;
constexpr std::uint32_t kStateCounts = 2;
constexpr std::uint32_t kNormal = 1;
constexpr std::uint8_t kWide = 32; ///< bits of a number

} // namespace

void beginAsWindow(const QWindow& window) {
    xcb_connection_t* const server = xServer();
    if (server == nullptr) {
        return;
    }
    const auto id = static_cast<xcb_window_t>(window.winId());
    const auto asked =
        xcb_get_property(server, 0, id, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS, 0, kHints);
    const XReply<xcb_get_property_reply_t> answer(xcb_get_property_reply(server, asked, nullptr));
    if (!answer || answer->format != kWide || answer->value_len < kHints) {
        return;
    }
    std::array<std::uint32_t, kHints> hints{};
    std::copy_n(static_cast<const std::uint32_t*>(xcb_get_property_value(answer.get())), kHints,
                hints.begin());
    if ((hints[kFlags] & kStateCounts) == 0 || hints[kInitialState] == kNormal) {
        return;
    }
    hints[kInitialState] = kNormal;
    xcb_change_property(server, XCB_PROP_MODE_REPLACE, id, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS,
                        kWide, kHints, hints.data());
}

} // namespace tovik::ui
