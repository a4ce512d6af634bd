// SPDX-License-Identifier: GPL-3.0-or-later
// The ID3v1.1 tag: 128 bytes at the end of an MP3 file (id3.org/ID3v1). Interface thread.
#pragma once

#include "tags/Id3v1Bytes.h"
#include "tags/TagWarning.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace tovik::tags {

/// Reads and writes the tag of one file. Texts are the bytes of the file with all padding: who
/// shows or tests one takes `shownField` of it. Opening never creates a file.
class cMP3ID3v1 {
public:
    /// The warning is shared with the tag editor and must outlive the object.
    explicit cMP3ID3v1(TagWarning& warning) : warning_(warning) {}

    [[nodiscard]] const std::string& MP3File() const noexcept { return path_; }

    /// Stores the path and reads the tag at once. A file that cannot be read leaves everything
    /// empty and brings the message of `TagWarning`.
    void MP3File(std::string path);

    /// Writes all fields over the tag, or behind the sound if there is none; texts are cut at their
    /// width and filled with blanks. A file of 1 to 128 bytes stays as it is. A file that cannot be
    /// opened for writing brings the message of `TagWarning`; an empty one does so too and raises
    /// `NotAnMp3File`. A write that fails raises its error, and the file keeps its length.
    void Update();

    [[nodiscard]] bool HasID3v1Tag() const noexcept { return hasTag_; }

    [[nodiscard]] const std::string& Title() const noexcept { return fields_.title; }

    [[nodiscard]] const std::string& Artist() const noexcept { return fields_.artist; }

    [[nodiscard]] const std::string& Album() const noexcept { return fields_.album; }

    [[nodiscard]] const std::string& Year() const noexcept { return fields_.year; }

    [[nodiscard]] std::uint8_t track() const noexcept { return fields_.track; }

    [[nodiscard]] const std::string& Comment() const noexcept { return fields_.comment; }

    [[nodiscard]] std::uint8_t genre() const noexcept { return fields_.genre; }

    // Setting touches memory only.
    void Title(std::string text) { fields_.title = std::move(text); }

    void Artist(std::string text) { fields_.artist = std::move(text); }

    void Album(std::string text) { fields_.album = std::move(text); }

    void Year(std::string text) { fields_.year = std::move(text); }

    void track(std::uint8_t number) { fields_.track = number; }

    void Comment(std::string text) { fields_.comment = std::move(text); }

    void genre(std::uint8_t number) { fields_.genre = number; }

    /// The name of a genre number, the same for ID3v2; empty for one without a name.
    [[nodiscard]] static std::string_view GenreName(int genre) noexcept;

    /// Makes the tag's mark unreadable. A deliberate oddity: nobody looks whether there is a tag,
    /// so on a file without one four bytes of sound are lost, and the tag's other bytes stay in the
    /// file. False when the file cannot be written or is shorter than a tag.
    [[nodiscard]] bool RemoveTag() const;

private:
    void ReadTag();
    void WriteTag();

    TagWarning& warning_;
    std::string path_;
    bool hasTag_ = false;
    Id3v1Fields fields_;
};

} // namespace tovik::tags
