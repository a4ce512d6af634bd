// SPDX-License-Identifier: GPL-3.0-or-later
// A region as bytes: the published record RGNDATA, that is an RGNDATAHEADER of 32 bytes (its size,
// the type RDH_RECTANGLES = 1, the number of rectangles, their bytes, the rectangle round them all)
// and the rectangles: left, top, right and bottom of 32 bits each. Any thread.
#pragma once

#include "ui/Region.h"

#include <optional>
#include <string>
#include <string_view>

namespace tovik::ui {

/// The most rectangles that are read.
inline constexpr std::uint32_t kMostRegionRectangles = 1U << 20;

/// How many edges of rectangles may be moved about for a file whose rectangles do not come in their
/// order, from the top downwards and from the left: enough for any outline, and no file can keep
/// the program busy.
inline constexpr std::size_t kMostRegionWork = std::size_t{1} << 24;

[[nodiscard]] std::string regionData(const Region& region);

/// Nothing for bytes that are no such record, end early, or ask for too much. What follows the
/// record is not looked at; empty rectangles are none.
[[nodiscard]] std::optional<Region> regionFromData(std::string_view text);

} // namespace tovik::ui
