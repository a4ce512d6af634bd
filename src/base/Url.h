// SPDX-License-Identifier: GPL-3.0-or-later
// Telling addresses from file names (RFC 3986, RFC 8089). Any thread.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tovik::base {

/// Whether the text begins with a scheme and "://".
[[nodiscard]] bool isUrl(std::string_view text) noexcept;

/// Whether the text is an address of the web: "http://" or "https://", in any case of letters, and
/// whatever follows.
[[nodiscard]] bool isWebUrl(std::string_view text) noexcept;

/// The bytes of the path that a `file:` address of this machine names, its percent escapes
/// decoded. Nothing for any other text, another machine or an escape that is none or is a zero.
[[nodiscard]] std::optional<std::string> pathFromFileUrl(std::string_view url);

/// The address of a file by its absolute path, in which all bytes but letters, digits and "-._~/"
/// stand as a percent sign and two digits (RFC 3986).
[[nodiscard]] std::string fileUrl(std::string_view path);

} // namespace tovik::base
