// SPDX-License-Identifier: GPL-3.0-or-later
// Helpers for texts as bytes. Any thread.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tovik::base {

/// Whether the bytes are well-formed UTF-8 (RFC 3629).
[[nodiscard]] bool isUtf8(std::string_view bytes) noexcept;

/// The first `width` bytes, or fewer: a text that is UTF-8 never ends in half a character.
[[nodiscard]] std::string_view cutToWidth(std::string_view text, std::size_t width) noexcept;

/// The first `count` characters, or fewer. Of a text that is no UTF-8 each byte is one.
[[nodiscard]] std::string_view firstCharacters(std::string_view text, std::size_t count) noexcept;

/// ASCII letters in lower (upper) case; every other byte stays.
[[nodiscard]] std::string toLowerAscii(std::string_view text);
[[nodiscard]] std::string toUpperAscii(std::string_view text);

/// Whether two texts are equal but for the case of ASCII letters.
[[nodiscard]] bool equalsIgnoringCase(std::string_view left, std::string_view right) noexcept;

/// The text with every `what` in it replaced; an empty `what` is in none.
[[nodiscard]] std::string replaceAll(std::string_view text, std::string_view what,
                                     std::string_view with);

/// Without the blanks (spaces alone) at both ends.
[[nodiscard]] std::string_view trimmed(std::string_view text) noexcept;

} // namespace tovik::base
