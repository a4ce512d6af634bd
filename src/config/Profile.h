// SPDX-License-Identifier: GPL-3.0-or-later
// Reading files of sections and keys ("[section]", "key=value"). Pure; any thread.
#pragma once

#include <string>
#include <string_view>

namespace tovik::config {

/// A value longer than this is cut.
inline constexpr std::size_t kProfileValueWidth = 254;

/// The value of a key in a section of the file whose bytes are given. Names match in any case of
/// letters, and the first match wins. Blanks round the value and one pair of quotes, single or
/// double, round what is left are dropped. Missing reads as empty.
[[nodiscard]] std::string profileValue(std::string_view bytes, std::string_view section,
                                       std::string_view key);

} // namespace tovik::config
