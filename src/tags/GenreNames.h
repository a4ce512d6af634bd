// SPDX-License-Identifier: GPL-3.0-or-later
// The names of the genre numbers of ID3v1, shared with ID3v2. Any thread.
#pragma once

#include <string_view>

namespace tovik::tags {

/// The name of a genre; empty for 123, which has none, and for numbers outside 0 to 147.
[[nodiscard]] std::string_view genreName(int genre) noexcept;

} // namespace tovik::tags
