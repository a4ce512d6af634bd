// SPDX-License-Identifier: GPL-3.0-or-later
// Reading and changing files of sections and keys ("[section]", "key=value") as bytes. Names match
// in any case of ASCII letters, and the first match wins. Pure; any thread.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::config {

/// A value longer than this is cut; UTF-8 never in the middle of a character.
inline constexpr std::size_t kProfileValueWidth = 254;

/// The value of a key in a section of the file whose bytes are given; nothing where there is no
/// such key. Blanks round the value and one pair of quotes, single or double, round what is left
/// are dropped.
[[nodiscard]] std::optional<std::string>
findProfileValue(std::string_view bytes, std::string_view section, std::string_view key);

/// The same with missing read as empty.
[[nodiscard]] std::string profileValue(std::string_view bytes, std::string_view section,
                                       std::string_view key);

/// The names of the keys in a section, in their order. A line that begins with ";" is a comment.
[[nodiscard]] std::vector<std::string> profileKeys(std::string_view bytes,
                                                   std::string_view section);

/// A key of a section with its value, as `findProfileValue` gives it.
struct ProfileEntry {
    std::string name;
    std::string value;
};

/// The keys in a section with their values, of at most so many bytes, in their order, comments left
/// out.
[[nodiscard]] std::vector<ProfileEntry> profileEntries(std::string_view bytes,
                                                       std::string_view section,
                                                       std::size_t width = kProfileValueWidth);

/// The bytes with a key set: in its place, else behind the last line of its section that is not
/// blank, else in a new section at the end. New lines end in CR LF, every other byte stays. Line
/// ends and zeros inside the value become blanks.
[[nodiscard]] std::string withProfileValue(std::string_view bytes, std::string_view section,
                                           std::string_view key, std::string_view value);

/// The bytes without a key; the same bytes where there is none.
[[nodiscard]] std::string withoutProfileKey(std::string_view bytes, std::string_view section,
                                            std::string_view key);

/// The bytes without a section and all that stands in it; the same bytes where there is none.
[[nodiscard]] std::string withoutProfileSection(std::string_view bytes, std::string_view section);

} // namespace tovik::config
