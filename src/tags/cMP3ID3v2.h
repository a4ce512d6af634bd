// SPDX-License-Identifier: GPL-3.0-or-later
// The ID3v2 tag at the head of an MP3 file. Interface thread, but for what `TagWork` runs.
#pragma once

#include "tags/TagFrames.h"
#include "tags/TagWarning.h"
#include "tags/TagWork.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace tovik::tags {

/// Reads the tag of one file into frames and fields, and writes it back whole. A deliberate
/// oddity, the format of this program: sizes are plain numbers in every version, a frame's text is
/// what stands behind its last zero byte, whatever the encoding, and each frame is written as a
/// zero byte and that text. Texts are bytes.
class cMP3ID3v2 {
public:
    /// The warning is shared with the tag editor; both outlive the object.
    explicit cMP3ID3v2(TagWarning& warning, TagWork& work = TagWork::direct())
        : warning_(warning), work_(work) {}

    [[nodiscard]] bool HasID3v2Tag() const noexcept { return position_ > 0; }

    /// The version byte as read; 0 without a tag.
    [[nodiscard]] std::uint8_t ID3v2TagVersion() const noexcept { return version_; }

    /// The number of distinct ids.
    [[nodiscard]] std::int32_t FrameCount() const noexcept {
        return static_cast<std::int32_t>(frames_.count());
    }

    /// The id at an index counted from 1. Raises 9 where there is none.
    [[nodiscard]] std::string Frame(std::int32_t index) const;

    /// Removes an id with all its instances; one that is not there brings the message of
    /// `TagWarning` while the tag editor saves.
    void RemoveFrame(std::string_view id);

    /// How many instances an id has; 0 for one that is not there.
    [[nodiscard]] std::int32_t TagsInFrame(std::string_view id) const {
        return static_cast<std::int32_t>(frames_.instances(id));
    }

    /// The text of an instance, counted from 1; empty for one that is not there.
    [[nodiscard]] std::string TagText(std::string_view id, std::int32_t index) const;

    /// Adds an instance, as the last of its id.
    void AddTag(std::string_view id, std::string_view text);

    /// Removes one instance, counted from 1; those behind it count one less. One that is not there
    /// is handled as by `RemoveFrame`.
    void RemoveTag(std::string_view id, std::int32_t index);

    [[nodiscard]] const std::string& ArtistURL() const noexcept { return fields_.artistUrl; }

    [[nodiscard]] const std::string& BuyURL() const noexcept { return fields_.buyUrl; }

    [[nodiscard]] const std::string& AudioURL() const noexcept { return fields_.audioUrl; }

    [[nodiscard]] const std::string& Copyright() const noexcept { return fields_.copyright; }

    [[nodiscard]] const std::string& Composer() const noexcept { return fields_.composer; }

    [[nodiscard]] const std::string& OriginalArtist() const noexcept {
        return fields_.originalArtist;
    }

    [[nodiscard]] const std::string& LinkTo() const noexcept { return fields_.linkTo; }

    [[nodiscard]] const std::string& PlayCounter() const noexcept { return fields_.playCounter; }

    [[nodiscard]] const std::string& EncodedBy() const noexcept { return fields_.encodedBy; }

    [[nodiscard]] const std::string& Title() const noexcept { return fields_.title; }

    [[nodiscard]] const std::string& Artist() const noexcept { return fields_.artist; }

    [[nodiscard]] const std::string& Album() const noexcept { return fields_.album; }

    [[nodiscard]] const std::string& Year() const noexcept { return fields_.year; }

    /// Several comments of a file stand behind each other, with a zero byte, CR and LF between.
    [[nodiscard]] const std::string& Comment() const noexcept { return fields_.comment; }

    [[nodiscard]] const std::string& Lyrics() const noexcept { return fields_.lyrics; }

    /// 255 where the file tells none.
    [[nodiscard]] std::uint8_t genre() const noexcept { return genre_; }

    [[nodiscard]] const std::string& OtherGenreName() const noexcept {
        return fields_.otherGenreName;
    }

    [[nodiscard]] const std::string& track() const noexcept { return fields_.track; }

    // Setting puts one new frame in the place of all of its id, in memory only. An id that was not
    // there brings the message of `TagWarning` while the tag editor saves: a deliberate oddity, a
    // false alarm.
    void ArtistURL(std::string text) { set("WOAR", std::move(text)); }

    void BuyURL(std::string text) { set("WCOM", std::move(text)); }

    void AudioURL(std::string text) { set("WOAF", std::move(text)); }

    void Copyright(std::string text) { set("TCOP", std::move(text)); }

    void Composer(std::string text) { set("TCOM", std::move(text)); }

    void OriginalArtist(std::string text) { set("TOPE", std::move(text)); }

    /// A deliberate oddity: link and lyrics are written with a zero byte behind them, and so come
    /// back empty.
    void LinkTo(std::string text) { set("WXXX", std::move(text)); }

    void PlayCounter(std::string text) { set("PCNT", std::move(text)); }

    void EncodedBy(std::string text) { set("TENC", std::move(text)); }

    void Title(std::string text) { set("TIT2", std::move(text)); }

    void Artist(std::string text) { set("TPE1", std::move(text)); }

    void Album(std::string text) { set("TALB", std::move(text)); }

    void Year(std::string text) { set("TYER", std::move(text)); }

    void Comment(std::string text) { set("COMM", std::move(text)); }

    void Lyrics(std::string text) { set("USLT", std::move(text)); }

    /// Written with the name of the number.
    void genre(std::uint8_t number);

    /// Written with the current number.
    void OtherGenreName(std::string name);

    void track(std::string text) { set("TRCK", std::move(text)); }

    /// The name of a genre number, the same as for ID3v1; empty for one without a name.
    [[nodiscard]] static std::string_view GenreName(int genre) noexcept;

    [[nodiscard]] const std::string& MP3File() const noexcept { return path_; }

    /// Stores the path and reads the tag at once; a file that cannot be read has none. Silent.
    void MP3File(std::string path);

    [[nodiscard]] std::uint8_t TagVersion() const noexcept { return version_; }

    /// Writes the whole tag: over the old one where it fits, else by moving the sound. Returns
    /// whether the file holds the tag now; on a failure it is as it was, and the message of
    /// `TagWarning` is told while the tag editor saves. A missing file stays missing.
    bool Update();

private:
    struct Fields {
        std::string title{};
        std::string artist{};
        std::string album{};
        std::string year{};
        std::string comment{};
        std::string track{};
        std::string playCounter{};
        std::string encodedBy{};
        std::string otherGenreName{};
        std::string linkTo{};
        std::string originalArtist{};
        std::string composer{};
        std::string copyright{};
        std::string audioUrl{};
        std::string buyUrl{};
        std::string artistUrl{};
        std::string lyrics{};
    };

    struct FrameRow;
    [[nodiscard]] static const FrameRow* rowOf(std::string_view id);

    void LoadTag();
    void StoreFrame(std::string_view id, std::string_view text);
    void storeGenre(std::string_view text);
    bool SaveTag();
    [[nodiscard]] std::string buffer() const;
    void set(std::string_view id, std::string text);
    void replaceFrame(std::string_view id, std::string_view text);

    TagWarning& warning_;
    TagWork& work_;
    std::string path_;
    std::int64_t position_ = 0;
    std::uint8_t version_ = 0;
    std::uint8_t genre_ = 255;
    Fields fields_;
    TagFrames frames_;
};

} // namespace tovik::tags
