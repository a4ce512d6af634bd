// SPDX-License-Identifier: GPL-3.0-or-later
// Control characters in texts of others. Pure; any thread.
#pragma once

#include <string>
#include <string_view>

namespace tovik::base {

/// The text, which is UTF-8, without C0, DEL and C1.
[[nodiscard]] std::string withoutControls(std::string_view text);

} // namespace tovik::base
