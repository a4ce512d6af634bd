// SPDX-License-Identifier: GPL-3.0-or-later
// The lines of the playlist files that are written. Pure; any thread.
#pragma once

#include <string>
#include <string_view>

namespace tovik::playlist {

/// Appends a line and its end, CR LF. A line break in the text becomes a blank.
void appendOneLine(std::string& list, std::string_view text);

} // namespace tovik::playlist
