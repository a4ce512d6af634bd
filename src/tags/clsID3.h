// SPDX-License-Identifier: GPL-3.0-or-later
// Facts of an MP3 file: the head of its first MPEG frame and the 128 bytes at its end. An older
// reader beside `cMP3ID3v1`. Interface thread.
#pragma once

#include "host/Dialogs.h"
#include "tags/FixedText.h"
#include "tags/MpegHeader.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tovik::tags {

/// Texts are bytes, held in fixed widths and read without the blanks around them. Failed file
/// operations raise their error; 53 for a missing file, which is never made, and 63 for one that
/// is shorter than a tag.
class clsID3 {
public:
    /// The dialogs must outlive the object.
    explicit clsID3(host::Dialogs& dialogs) : dialogs_(dialogs) {}

    /// Reads tag and header. -1 for a missing file, else nothing.
    std::optional<std::int32_t> ReadMP3Info();

    /// Renames the file by a pattern of "%" and letters, which is filled in where it stands. 1 when
    /// it was renamed, -1 when not, nothing without a tag. It never replaces a file. A deliberate
    /// oddity: a name that ends in "-" or "_" is shown in two boxes.
    std::optional<std::int32_t> RenameFile(std::string& format);

    /// Cuts the tag off. 1 when it was cut, 0 without a tag, -1 when the file is missing or cannot
    /// be opened. A file without a tag stays writable.
    [[nodiscard]] std::int32_t RemoveTag() const;

    /// The name of a number, "Unknown" above the last one; the number of a name, "255" for one
    /// that is in no list. Raises 9 below 0.
    [[nodiscard]] static std::string GetGenre(std::string_view value);

    /// Looks for the first frame and takes it apart. Empty, or "-2" where there is none in the
    /// first 50,000 bytes. A deliberate oddity: only layer 3 of version 1 without a checksum is
    /// found. Without a frame, the fields tell what was last taken for one.
    std::string ReadHeader();

    // Empty while no tag is present.
    [[nodiscard]] std::string Title() const { return shown(title_); }

    [[nodiscard]] std::string Artist() const { return shown(artist_); }

    [[nodiscard]] std::string genre() const { return shown(genre_); }

    [[nodiscard]] std::string Album() const { return shown(album_); }

    [[nodiscard]] std::string Year() const { return shown(year_); }

    /// All 30 bytes: the track of ID3v1.1 is inside.
    [[nodiscard]] std::string Comment() const { return shown(comment_); }

    [[nodiscard]] bool TagPresent() const noexcept { return tagPresent_; }

    [[nodiscard]] const std::string& FileName() const noexcept { return fileName_; }

    /// With the separator behind it.
    [[nodiscard]] const std::string& Path() const noexcept { return path_; }

    [[nodiscard]] const std::string& FullName() const noexcept { return fullName_; }

    /// See `fileAttributes`.
    [[nodiscard]] std::string FileAttributes() const;

    [[nodiscard]] std::string MPEGVersion() const { return header_.version.trimmed(); }

    [[nodiscard]] std::string Layer() const { return header_.layer.trimmed(); }

    [[nodiscard]] std::string SampleRate() const { return header_.sampleRate.trimmed(); }

    [[nodiscard]] std::string ChannelMode() const { return header_.channelMode.trimmed(); }

    [[nodiscard]] std::string ModeExtension() const { return header_.modeExtension.trimmed(); }

    [[nodiscard]] std::string bitrate() const { return header_.bitrate.trimmed(); }

    /// "CCIT J.1" for the longest: it is cut at its width.
    [[nodiscard]] std::string Emphasis() const { return header_.emphasis.trimmed(); }

    [[nodiscard]] std::int32_t TotalFrames() const noexcept { return totalFrames_; }

    /// In bytes.
    [[nodiscard]] std::int16_t FrameLength() const noexcept { return header_.frameLength; }

    /// In seconds by the rate of the one frame, with a rounding of its own; -1 without a header.
    float PlayTime();

    [[nodiscard]] bool Copyright() const noexcept { return header_.copyright; }

    [[nodiscard]] bool Original() const noexcept { return header_.original; }

    [[nodiscard]] std::int16_t PrivateBit() const noexcept { return header_.privateBit; }

    [[nodiscard]] bool CRCPresent() const noexcept { return header_.crcPresent; }

    [[nodiscard]] std::string Padding() const { return std::to_string(header_.padding); }

    /// "True" or "False".
    [[nodiscard]] std::string ValidHeader() const { return header_.valid ? "True" : "False"; }

    // Setting writes the whole tag at once and forgets that one is present, deliberately: a second
    // setter in a row appends a second tag unless the tag was read in between. A missing file is
    // passed over. A genre is a name; a number raises 13.
    void Title(std::string_view text) { set(title_, text); }

    void Album(std::string_view text) { set(album_, text); }

    void Artist(std::string_view text) { set(artist_, text); }

    void Year(std::string_view text) { set(year_, text); }

    void Comment(std::string_view text) { set(comment_, text); }

    void genre(std::string_view text) { set(genre_, text); }

    /// Splits the path; nothing is read.
    void FullName(std::string path);

    /// See `setFileAttributes`.
    void FileAttributes(std::string_view letters) const;

private:
    template <std::size_t Width>
    [[nodiscard]] std::string shown(const FixedText<Width>& field) const {
        return tagPresent_ ? field.trimmed() : std::string();
    }

    template <std::size_t Width>
    void set(FixedText<Width>& field, std::string_view text) {
        field = text;
        static_cast<void>(WriteTag());
    }

    void ReadTag();
    std::int32_t WriteTag();
    [[nodiscard]] std::string tagBytes() const;
    [[nodiscard]] static bool FileExists(const std::string& path);
    [[nodiscard]] std::int64_t FindFrame();
    void fillTagLetters(std::string& format) const;
    void fillHeaderLetters(std::string& format);

    host::Dialogs& dialogs_;
    std::string fullName_;
    std::string fileName_;
    std::string path_;
    FixedText<30> title_;
    FixedText<30> artist_;
    FixedText<30> album_;
    FixedText<4> year_;
    FixedText<30> comment_;
    FixedText<20> genre_;
    bool tagPresent_ = false;
    MpegHeader header_;
    std::int32_t totalFrames_ = 0;
    float playTime_ = 0;
};

} // namespace tovik::tags
