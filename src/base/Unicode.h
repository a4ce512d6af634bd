// SPDX-License-Identifier: GPL-3.0-or-later
// Characters by number, and texts of 16-bit units. Any thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::base {

/// Appends one character, up to U+10FFFF, in UTF-8 (RFC 3629).
void appendUtf8(std::string& text, std::uint32_t character);

/// Takes the first character off a text that is UTF-8 and not empty.
[[nodiscard]] std::uint32_t takeCharacter(std::string_view& text);

enum class ByteOrder { LittleEndian, BigEndian };

/// UTF-16 text in UTF-8 (RFC 2781). U+FFFD stands for half a pair and for half a unit at the end.
[[nodiscard]] std::string utf8FromUtf16(std::string_view bytes, ByteOrder order);

/// The characters of a text that is UTF-8.
[[nodiscard]] std::u32string charactersOf(std::string_view text);

/// Characters in UTF-16, low byte first (RFC 2781).
[[nodiscard]] std::string utf16LeOf(std::u32string_view characters);

/// A text file's text: UTF-16 that begins with a byte order mark is turned into UTF-8, the mark of
/// UTF-8 is dropped, and bytes without a mark stay as they are.
[[nodiscard]] std::string withoutByteOrderMark(std::string bytes);

} // namespace tovik::base
