// SPDX-License-Identifier: GPL-3.0-or-later
// What a file of music says of itself, whatever its format. TagLib reads it, in a module of ours
// beside the program that is loaded with the first file: no start pays for it. Reads the disk, so
// not for the interface thread; any other.
#pragma once

#include "tags/TagBytes.h"
#include "tags/TagPicture.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tovik::tags {

/// What only MPEG audio has: "1.0", "2.0" or "2.5", "1" to "3".
struct MpegFacts {
    std::string version{};
    std::string layer{};
    bool copyright = false;
    bool original = false;

    bool operator==(const MpegFacts&) const = default;
};

/// Texts are UTF-8 on one line, without blanks at their ends, and at most `kMostFactBytes` long;
/// empty where nothing is known. Numbers are 0 then.
struct FileFacts {
    std::string artist{};
    std::string title{};
    std::string album{};
    std::string year{};
    std::string genre{};
    std::int32_t track = 0; ///< its number on the album
    std::int32_t disc = 0;  ///< of how many the album has
    std::int32_t seconds = 0;
    std::int32_t kilobits = 0; ///< a second, compressed
    std::int32_t hertz = 0;
    std::int32_t channels = 0;
    std::int32_t bits = 0; ///< of a sample
    std::optional<MpegFacts> mpeg{};

    /// The file is empty, or was taken out of its folder: nothing of it can be played.
    bool nothing = false;

    bool operator==(const FileFacts&) const = default;
};

inline constexpr std::size_t kMostFactBytes = 4000;

/// The facts of a file; nothing is known of one that no reader takes, or that is not there.
[[nodiscard]] FileFacts factsOfFile(const std::string& path);

/// The same for bytes; `name` is asked for the format where they do not tell it.
[[nodiscard]] FileFacts factsOfBytes(TagBytes& bytes, const std::string& name);

/// The picture that a file of any format carries: the front cover, else the first one.
[[nodiscard]] std::optional<TagPicture> pictureOfAnyFile(const std::string& path);

/// The same for bytes.
[[nodiscard]] std::optional<TagPicture> pictureOfBytes(TagBytes& bytes, const std::string& name);

/// "Artist - Title", or the title alone; empty without a title.
[[nodiscard]] std::string listTitle(const FileFacts& facts);

/// Whether one file goes on where the other ends: the next track of the same album by the same
/// artist.
[[nodiscard]] bool followsOnAlbum(const FileFacts& before, const FileFacts& after);

} // namespace tovik::tags
