// SPDX-License-Identifier: GPL-3.0-or-later
// Lengths of time as text. Any thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::base {

/// "hh:mm:ss", with more digits for the hours where it takes them; "00:00:00" for 0 and below.
[[nodiscard]] std::string GetTime(std::int32_t seconds);

/// Its last five characters, "mm:ss": hours are cut away.
[[nodiscard]] std::string lastFive(std::int32_t seconds);

/// "mm:ss", and from an hour on "h:mm:ss".
[[nodiscard]] std::string shortTime(std::int32_t seconds);

/// The seconds of a text "hh:mm:ss": the numbers at the first, fourth and seventh character, each
/// two characters long; what stands between does not matter. Raises TypeMismatch when one is no
/// number.
[[nodiscard]] std::int32_t GetSeconds(std::string_view time);

} // namespace tovik::base
