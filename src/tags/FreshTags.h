// SPDX-License-Identifier: GPL-3.0-or-later
// Tags of a file that this program has made, as every player reads them: ID3v1.1 and ID3v2.3
// (id3.org/ID3v1, id3.org/id3v2.3.0). Any thread, one a file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <system_error>

namespace tovik::tags {

/// What is told of a file. Texts are UTF-8; what is empty, or 0, stands in no ID3v2 tag.
struct FreshTags {
    std::string title{};
    std::string artist{};
    std::string album{};
    std::string year{};
    std::string genre{}; ///< for ID3v2
    std::string encodedBy{};
    std::optional<std::uint8_t> genreNumber{}; ///< for ID3v1; none: "no genre"
    std::uint8_t track = 0;                    ///< from 1
};

/// The 128 bytes behind the sound: Windows-1252 where that holds a text, else UTF-8.
[[nodiscard]] std::string freshTail(const FreshTags& tags);

/// The tag in front of the sound: ISO 8859-1 where that holds a text, else UTF-16; no room behind.
[[nodiscard]] std::string freshHead(const FreshTags& tags);

/// Puts both into a file that has none. A missing file is not made; after a failure the sound is
/// all there.
[[nodiscard]] std::error_code tagFreshFile(const std::string& path, const FreshTags& tags);

} // namespace tovik::tags
