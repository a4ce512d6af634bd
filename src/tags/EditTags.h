// SPDX-License-Identifier: GPL-3.0-or-later
// The tags of a file as an editor changes them: what it does not touch stays byte for byte. Reads
// and writes the disk, so not for the interface thread; any other, one a file.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <system_error>

namespace tovik::tags {

enum class EditField : std::uint8_t {
    title,
    artist,
    album,
    year,
    comment,
    track,
    genre, ///< a number of the list of ID3v1, or a name
    composer,
    originalArtist,
    copyright,
    artistUrl,
    encodedBy,
};

inline constexpr std::size_t kEditFields = 12;

/// Texts in UTF-8, by `EditField`.
using EditTexts = std::array<std::string, kEditFields>;

struct EditTag {
    bool there = false;
    EditTexts texts{};

    [[nodiscard]] const std::string& text(EditField field) const {
        return texts.at(static_cast<std::size_t>(field));
    }
};

/// How a file keeps its tags.
enum class TagKind : std::uint8_t {
    none,    ///< none that can be edited
    mpeg,    ///< ID3v1 at its end, ID3v2 at its start
    xiph,    ///< the comments of Ogg and FLAC
    windows, ///< the attributes of WMA
};

/// Of all but `mpeg` files the second tag is the only one.
struct EditTags {
    TagKind kind = TagKind::none;
    EditTag version1;
    EditTag version2;
};

/// What becomes of one tag.
struct TagChange {
    bool keep = true; ///< false: it is removed. A kept one that is not there is made for a text
    std::array<std::optional<std::string>, kEditFields> texts{}; ///< none: stays as it is

    [[nodiscard]] bool any() const;
};

struct TagChanges {
    TagChange version1;
    TagChange version2;
};

/// What a file holds. One that cannot be read has no tags that can be edited.
[[nodiscard]] EditTags readEditTags(const std::string& path);

/// Writes what is to change to a copy beside the file, with its mode, and puts that in its place: a
/// failure leaves the file as it was. Where nothing would be another, nothing is written.
[[nodiscard]] std::error_code saveEditTags(const std::string& path, const TagChanges& changes);

} // namespace tovik::tags
