// SPDX-License-Identifier: GPL-3.0-or-later
// The file that is kept of a disc, in the folder "CDDB" of the data folder under the number of the
// disc: lines of a key, "=" and a text. Any thread.
#pragma once

#include "cd/CdState.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::cd {

/// The most that a file may hold; a larger one counts as missing.
inline constexpr std::int64_t kMostDiscFileBytes = std::int64_t{1} << 20;

/// The bytes of the file. Line ends inside a text become blanks.
[[nodiscard]] std::string discFileText(std::string_view discId, const DiscForm& form);

/// How a line of a file tells what it is.
enum class DiscKeys : std::uint8_t {
    anywhere, ///< by what stands anywhere in it: the way of old
    inFront,  ///< by the key in front of its first "="; other lines are passed over
};

/// Takes over what the bytes of a file say; its tracks take the place of those that were there.
/// Deliberate oddities of the way of old: a line is told by what stands anywhere in it, so that a
/// track named "Dyear" is taken for the year, and a text ends in front of its first "=". Raises 9
/// at a line that is told and has no "=": what stands before it is taken over then. Bytes that are
/// no UTF-8 count as Windows-1252, text by text.
void readDiscFile(std::string_view bytes, DiscForm& form, DiscKeys keys = DiscKeys::anywhere);

} // namespace tovik::cd
