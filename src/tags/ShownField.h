// SPDX-License-Identifier: GPL-3.0-or-later
// What people see of a field of a tag. Pure; any thread.
#pragma once

#include <string_view>

namespace tovik::tags {

/// The field up to its first zero byte, without the blanks at both ends.
[[nodiscard]] std::string_view shownField(std::string_view field) noexcept;

} // namespace tovik::tags
