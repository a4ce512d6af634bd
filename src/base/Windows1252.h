// SPDX-License-Identifier: GPL-3.0-or-later
// The single-byte code page of old lists and tags, and the text that people see. Any thread.
// The table is the published mapping of code page 1252; its five unassigned bytes stand for the
// control characters of the same number, so that every byte has a character and comes back.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tovik::base {

/// Any bytes, read as Windows-1252, in UTF-8.
[[nodiscard]] std::string utf8FromWindows1252(std::string_view bytes);

/// UTF-8 text in Windows-1252; nothing when a character has no place there or the text is not
/// UTF-8.
[[nodiscard]] std::optional<std::string> windows1252FromUtf8(std::string_view text);

/// What people see of any bytes, in UTF-8: valid UTF-8 is itself, anything else Windows-1252.
[[nodiscard]] std::string displayText(std::string_view bytes);

} // namespace tovik::base
