// SPDX-License-Identifier: GPL-3.0-or-later
// The helper's end of the socket. The one thread of the process.
#pragma once

#include "sound/visual/HelperMessages.h"

#include <optional>
#include <string_view>

namespace tovik::visual {

/// An order, with the descriptor that came along; -1: none.
struct Received {
    sound::HelperOrder order;
    int descriptor = -1;
};

/// Waits for the next order; nothing once the player has closed its end.
[[nodiscard]] std::optional<Received> receive();

/// False when nobody listens any more.
bool tell(sound::HelperAnswerHead head, std::string_view text = {});

} // namespace tovik::visual
