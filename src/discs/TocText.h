// SPDX-License-Identifier: GPL-3.0-or-later
// The contents of a disc as a text, and the number that the disc has by them. Any thread.
// The text is what a query of the CDDB protocol names a disc by: the count of the tracks, where
// each begins, the length of the disc. The number is that of the protocol's "Disc ID".
#pragma once

#include "sound/api/DiscToc.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::discs {

/// The most tracks that a disc can have.
inline constexpr std::size_t kMostTracks = 99;

/// "2 150 22500 600": two tracks, where they begin in sectors with the lead-in counted, the length
/// of the disc in seconds. Tracks with data count. Empty for a disc without tracks, or whose tracks
/// do not follow each other.
[[nodiscard]] std::string tocText(const sound::DiscToc& toc);

/// The same in its parts.
struct TocNumbers {
    std::vector<std::uint32_t> starts{}; ///< in sectors, in the order of the disc
    std::uint32_t seconds = 0;           ///< where the last track ends
};

/// Nothing for a text that is none: each of its numbers must be there, in that order.
[[nodiscard]] std::optional<TocNumbers> parseToc(std::string_view toc);

/// Eight digits of base 16 in small letters; empty for a text that is none.
[[nodiscard]] std::string discId(std::string_view toc);

} // namespace tovik::discs
