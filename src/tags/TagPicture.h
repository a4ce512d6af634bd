// SPDX-License-Identifier: GPL-3.0-or-later
// The picture that an ID3v2 tag carries (id3.org: 2.2, 2.3 and 2.4). Other than the frames of
// `cMP3ID3v2` it is read as the format says, since other programs wrote it. Any thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tovik::tags {

enum class PictureForm : std::uint8_t { jpeg, png };

struct TagPicture {
    PictureForm form{}; ///< as its first bytes tell, whatever the tag says
    std::string bytes;
};

/// The form of a picture; nothing for any other bytes.
[[nodiscard]] std::optional<PictureForm> pictureForm(std::string_view bytes) noexcept;

/// The picture of a tag that begins these bytes and may end behind them: the front cover, else the
/// first one. Nothing where there is none, or it is compressed, encrypted or cut off.
[[nodiscard]] std::optional<TagPicture> pictureOfTag(std::string_view tag);

/// The same for a file. Only a picture within the tag's first 16 MiB is found. Reads the disk.
[[nodiscard]] std::optional<TagPicture> pictureOfFile(const std::string& path);

} // namespace tovik::tags
