// SPDX-License-Identifier: GPL-3.0-or-later
// The names of genres as `clsID3` spells them; `GenreNames.h` holds those of the tag classes, which
// are spelled otherwise on purpose. Any thread.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace tovik::tags {

inline constexpr std::size_t kInfoGenres = 148;

/// The names by number.
[[nodiscard]] const std::array<std::string_view, kInfoGenres>& infoGenres() noexcept;

} // namespace tovik::tags
