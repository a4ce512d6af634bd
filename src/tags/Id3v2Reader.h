// SPDX-License-Identifier: GPL-3.0-or-later
// Finds an ID3v2 tag in a file and walks its frames. All sizes are plain numbers of 32 bits, in
// every version: seven-bit sizes are not known here. One thread at a time.
#pragma once

#include "tags/FileWindow.h"

#include <cstdint>
#include <functional>
#include <string_view>

namespace tovik::tags {

inline constexpr std::string_view kTagMark = "ID3";
inline constexpr std::int64_t kTagHeadBytes = 10;
inline constexpr std::size_t kFrameHeadBytes = 10;

/// The place of the version byte behind the mark "ID3", counted from 1; 0 without a tag. The mark
/// need not stand at the start; the search ends where sound (FF FB) was met, and the last byte of
/// a file is not looked at.
[[nodiscard]] std::int64_t FindTag(FileWindow& file);

struct RawFrame {
    std::int64_t offset; ///< of its head, counted from 0
    std::string_view id; ///< four bytes
    std::string_view content;
    std::string_view flags; ///< two bytes
};

/// Gives each frame of the tag whose version byte stands at that position, until four zero bytes
/// in place of an id, a frame that leaves the file, or the end that the tag's head tells; that end
/// counts from the start of the file. Only versions 3 and 4 give frames. Returns the version byte.
std::uint8_t ParseTag(FileWindow& file, std::int64_t position,
                      const std::function<void(const RawFrame&)>& take);

/// What counts as the text of a frame: all that stands behind the last zero byte.
[[nodiscard]] std::string_view frameText(std::string_view content) noexcept;

} // namespace tovik::tags
