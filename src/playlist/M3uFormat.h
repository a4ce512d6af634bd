// SPDX-License-Identifier: GPL-3.0-or-later
// The M3U format with "#EXTINF" lines, as bytes. Pure; any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tovik::playlist {

inline constexpr std::string_view kM3uHead = "#EXTM3U";
inline constexpr std::string_view kM3uDirective = "#EXT"; ///< any other line is an entry
inline constexpr std::string_view kM3uInfo = "#EXTINF";

/// The line "#EXTINF:215,Title", taken apart.
struct M3uInfo {
    std::string_view title{}; ///< behind the first ","

    /// Between the first ":" and that comma; empty when the comma comes first, nothing without ":".
    std::optional<std::string_view> seconds{};
};

/// Nothing for a line without a comma.
[[nodiscard]] std::optional<M3uInfo> parseM3uInfo(std::string_view line) noexcept;

/// The file name of an entry: the line without the blanks at its end.
[[nodiscard]] std::string_view m3uFileName(std::string_view line) noexcept;

/// Appends the first line of a list.
void appendM3uHead(std::string& list);

/// Appends the two lines of an entry. A line break in a title or a file name becomes a blank: it
/// would end the entry in the middle, and could make the rest of the list unreadable.
void appendM3uEntry(std::string& list, std::int32_t seconds, std::string_view title,
                    std::string_view fileName);

} // namespace tovik::playlist
