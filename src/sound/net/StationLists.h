// SPDX-License-Identifier: GPL-3.0-or-later
// Playlists that a server answers instead of a stream: M3U and PLS. Pure; any thread.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::sound {

/// What of a list is read, and how deep lists may name lists.
inline constexpr std::size_t kMostListBytes = std::size_t{64} * 1024;
inline constexpr int kMostListDepth = 3;
inline constexpr std::size_t kMostAddresses = 64;

/// What the beginning of an answer shows it to be.
enum class AnswerKind {
    sound,
    list,
    page,   ///< HTML or other text: no sound, whatever its type says
    unsure, ///< too few bytes to tell
};

/// Looks at the type (in lower case) and the first bytes of a body. Pages and lists betray
/// themselves by their first bytes, whatever type they come under. `all`: there are no more bytes.
[[nodiscard]] AnswerKind kindOfAnswer(std::string_view contentType, std::string_view begin,
                                      bool all);

/// The http and https addresses of a list that was had from `base`, 64 at most; relative ones are
/// made whole. What lies behind 64 KiB is not looked at.
[[nodiscard]] std::vector<std::string> addressesOfList(std::string_view text,
                                                       std::string_view base);

/// A list of the pieces of one stream, or of its forms (HLS), and not of streams.
[[nodiscard]] bool isListOfPieces(std::string_view text);

/// Whether the text begins with "http://" or "https://" and goes on behind it.
[[nodiscard]] bool isHttpAddress(std::string_view text);

/// `reference` as seen from `base` (RFC 3986, 5.2, without the removal of dots); empty when it
/// leads to neither http nor https.
[[nodiscard]] std::string wholeAddress(std::string_view base, std::string_view reference);

/// Without blanks, tabs and line ends round it.
[[nodiscard]] std::string_view withoutWhite(std::string_view text) noexcept;

} // namespace tovik::sound
