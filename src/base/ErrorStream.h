// SPDX-License-Identifier: GPL-3.0-or-later
// What the program says to whoever started it from a terminal. Any thread.
#pragma once

#include <string_view>

namespace tovik::base {

/// Writes "tovik: ", the text and a line end to the error stream. Any thread.
void tell(std::string_view text) noexcept;

} // namespace tovik::base
