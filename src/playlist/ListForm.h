// SPDX-License-Identifier: GPL-3.0-or-later
// Which files are playlists, and of which form. Pure; any thread.
#pragma once

#include "base/Comfort.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace tovik::playlist {

enum class ListForm : std::uint8_t { M3u, Pls, Xspf };

/// The form that the extension tells, in any case of letters; nothing for a file that is no list.
/// M3U8 and XSPF are forms only with `Comfort::opensMoreLists`.
[[nodiscard]] std::optional<ListForm> listFormOf(std::string_view path,
                                                 const base::Comfort& comfort);

/// The form of a text that goes by this one: "[playlist]" begins a PLS file, "#EXTM3U" an M3U file
/// and "<" an XSPF file, whatever the name says.
[[nodiscard]] ListForm listFormIn(std::string_view text, ListForm named);

} // namespace tovik::playlist
