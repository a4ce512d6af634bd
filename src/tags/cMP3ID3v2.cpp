// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/cMP3ID3v2.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "tags/BigEndian.h"
#include "tags/GenreNames.h"
#include "tags/Id3v2Reader.h"
#include "tags/TagUpdate.h"

#include <algorithm>
#include <array>
#include <optional>

namespace tovik::tags {

/// Which field a frame fills, and what stands around the text that a setter writes.
struct cMP3ID3v2::FrameRow {
    std::string_view id;
    std::string Fields::*field;
    std::string_view before{};
    std::string_view behind{};
};

namespace {

using namespace std::string_view_literals;

constexpr std::string_view kComment = "COMM";
constexpr std::string_view kGenre = "TCON";
constexpr std::string_view kBetweenComments = "\0\r\n"sv;
constexpr std::uint8_t kNoGenre = 255;

constexpr std::string_view kWrittenHead = "ID3\x03\0\0\0\0\0\0"sv;
constexpr std::size_t kEndBytes = 4; ///< four zero bytes end a later read

std::optional<std::uint8_t> byteOf(std::string_view digits) {
    try {
        const std::int16_t number = base::toInt16(base::textToNumber(digits));
        if (number >= 0 && number <= UINT8_MAX) {
            return static_cast<std::uint8_t>(number);
        }
    } catch (const base::RuntimeError&) { // no number
    }
    return std::nullopt;
}

} // namespace

const cMP3ID3v2::FrameRow* cMP3ID3v2::rowOf(std::string_view id) {
    static constexpr std::array kRows{
        FrameRow{"WOAR", &Fields::artistUrl},
        FrameRow{"WCOM", &Fields::buyUrl},
        FrameRow{"WOAF", &Fields::audioUrl},
        FrameRow{"TCOP", &Fields::copyright},
        FrameRow{"TCOM", &Fields::composer},
        FrameRow{"TOPE", &Fields::originalArtist},
        FrameRow{"WXXX", &Fields::linkTo, "", "\0"sv},
        FrameRow{"PCNT", &Fields::playCounter},
        FrameRow{"TENC", &Fields::encodedBy},
        FrameRow{"TIT2", &Fields::title},
        FrameRow{"TPE1", &Fields::artist},
        FrameRow{"TALB", &Fields::album},
        FrameRow{"TYER", &Fields::year},
        FrameRow{kComment, &Fields::comment, "\0nt\0"sv},
        FrameRow{"USLT", &Fields::lyrics, "", "\0"sv},
        FrameRow{"TRCK", &Fields::track},
    };
    const auto* const row = std::find_if(kRows.begin(), kRows.end(),
                                         [id](const FrameRow& each) { return each.id == id; });
    return row == kRows.end() ? nullptr : row;
}

std::string cMP3ID3v2::Frame(std::int32_t index) const {
    return frames_.name(static_cast<std::size_t>(index) - 1);
}

void cMP3ID3v2::RemoveFrame(std::string_view id) {
    if (!frames_.removeAll(id)) {
        warning_.showWhileSaving();
    }
}

void cMP3ID3v2::AddTag(std::string_view id, std::string_view text) {
    frames_.add(id, text);
}

void cMP3ID3v2::RemoveTag(std::string_view id, std::int32_t index) {
    if (!frames_.remove(id, static_cast<std::size_t>(index))) {
        warning_.showWhileSaving();
    }
}

void cMP3ID3v2::replaceFrame(std::string_view id, std::string_view text) {
    RemoveFrame(id);
    AddTag(id, text);
}

void cMP3ID3v2::set(std::string_view id, std::string text) {
    if (const FrameRow* const row = rowOf(id)) {
        replaceFrame(id, std::string(row->before) + text + std::string(row->behind));
        fields_.*row->field = std::move(text);
    }
}

void cMP3ID3v2::genre(std::uint8_t number) {
    genre_ = number;
    replaceFrame(kGenre, "(" + std::to_string(genre_) + ")" + std::string(GenreName(genre_)));
}

void cMP3ID3v2::OtherGenreName(std::string name) {
    fields_.otherGenreName = std::move(name);
    replaceFrame(kGenre, "(" + std::to_string(genre_) + ")" + fields_.otherGenreName);
}

std::string_view cMP3ID3v2::GenreName(int genre) noexcept {
    return genreName(genre);
}

void cMP3ID3v2::MP3File(std::string path) {
    path_ = std::move(path);
    LoadTag();
}

void cMP3ID3v2::LoadTag() {
    frames_.clear();
    fields_ = {};
    position_ = 0;
    version_ = 0;
    genre_ = kNoGenre;
    work_.run([this] {
        const base::RegularFile file(path_, base::RegularFile::Access::Read);
        if (file.failure()) {
            return;
        }
        FileWindow window(file);
        position_ = FindTag(window);
        if (position_ > 0) {
            version_ = ParseTag(window, position_, [this](const RawFrame& frame) {
                StoreFrame(frame.id, frameText(frame.content));
            });
        }
    });
}

void cMP3ID3v2::StoreFrame(std::string_view id, std::string_view text) {
    frames_.add(id, text);
    if (id == kGenre) {
        storeGenre(text);
    } else if (id == kComment && !fields_.comment.empty()) {
        fields_.comment.append(kBetweenComments).append(text);
    } else if (const FrameRow* const row = rowOf(id)) {
        fields_.*row->field = text;
    }
}

/// A deliberate oddity: the last digit of the number is cut off, "(17)" is genre 1.
void cMP3ID3v2::storeGenre(std::string_view text) {
    const std::size_t open = text.find('(');
    const std::size_t close = text.find(')');
    const bool both = open != std::string_view::npos && close != std::string_view::npos;
    const std::optional<std::uint8_t> number =
        both && close >= open + 2 ? byteOf(text.substr(open + 1, close - open - 2)) : std::nullopt;
    if (!number) {
        fields_.otherGenreName = text;
        return;
    }
    genre_ = *number;
    // A name of a single letter is not taken, either.
    fields_.otherGenreName = close + 2 < text.size() ? text.substr(close + 1) : GenreName(genre_);
}

std::string cMP3ID3v2::TagText(std::string_view id, std::int32_t index) const {
    return std::string(frames_.text(id, static_cast<std::size_t>(index)).value_or(""));
}

std::string cMP3ID3v2::buffer() const {
    std::string bytes(kWrittenHead);
    frames_.forEach([&bytes](std::string_view id, std::string_view text) {
        if (id.find(kTagMark) != std::string_view::npos) {
            return; // the head of another tag that a read ran into
        }
        const std::size_t sizeAt = bytes.size() + id.size();
        bytes.append(id).append(6, '\0');
        PutBigEndian(bytes, sizeAt, static_cast<std::int32_t>(text.size() + 1));
        bytes.append(1, '\0').append(text);
    });
    return bytes.append(kEndBytes, '\0');
}

bool cMP3ID3v2::Update() {
    return SaveTag();
}

bool cMP3ID3v2::SaveTag() {
    bool saved = false;
    work_.run([&] { saved = !updateTag(path_, buffer()); });
    if (!saved) {
        warning_.showWhileSaving();
    }
    return saved;
}

} // namespace tovik::tags
