// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/FreshTags.h"

#include "base/RegularFile.h"
#include "base/Unicode.h"
#include "tags/Id3v1Bytes.h"
#include "tags/MakeRoom.h"
#include "tags/TagField.h"

#include <array>
#include <string_view>
#include <utility>

namespace tovik::tags {

namespace {

using namespace std::string_view_literals;

constexpr std::uint8_t kNoGenre = 255;
constexpr std::uint32_t kLastLatin = 0xFF;
constexpr std::string_view kHead = "ID3\x03\0\0"sv; // version 2.3, no flags
constexpr std::string_view kFlags = "\0\0"sv;
constexpr char kLatin = 0;
constexpr char kWide = 1;
constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
constexpr std::size_t kSizeBytes = 4;

/// Never so long that a size of seven bits a byte would not hold it.
constexpr std::size_t kMostTextBytes = 4096;

std::string fieldOf(const std::string& text) {
    TagField field;
    field.type(text);
    return field.bytes();
}

void appendSize(std::string& to, std::uint32_t size, unsigned bitsPerByte) {
    const std::uint32_t mask = (1U << bitsPerByte) - 1U;
    for (std::size_t byte = kSizeBytes; byte > 0; --byte) {
        to += static_cast<char>(size >> (bitsPerByte * (byte - 1)) & mask);
    }
}

/// A frame's text with the byte that tells how it is written.
std::string encoded(const std::string& told) {
    const std::string shown = base::displayText(told);
    std::string_view text = shown;
    std::u32string characters;
    std::string latin(1, kLatin);
    while (!text.empty() && characters.size() < kMostTextBytes) {
        const std::uint32_t character = base::takeCharacter(text);
        characters += static_cast<char32_t>(character);
        if (character <= kLastLatin) {
            latin += static_cast<char>(character);
        }
    }
    if (latin.size() == characters.size() + 1) {
        return latin;
    }
    return std::string(1, kWide).append(kLittleEndianMark) + base::utf16LeOf(characters);
}

void appendFrame(std::string& to, std::string_view id, const std::string& text) {
    constexpr unsigned kWholeByte = 8;
    if (text.empty()) {
        return;
    }
    const std::string body = encoded(text);
    to += id;
    appendSize(to, static_cast<std::uint32_t>(body.size()), kWholeByte);
    to.append(kFlags).append(body);
}

} // namespace

std::string freshTail(const FreshTags& tags) {
    return id3v1Bytes({.title = fieldOf(tags.title),
                       .artist = fieldOf(tags.artist),
                       .album = fieldOf(tags.album),
                       .year = fieldOf(tags.year),
                       .genre = tags.genreNumber.value_or(kNoGenre),
                       .track = tags.track});
}

std::string freshHead(const FreshTags& tags) {
    constexpr unsigned kSevenBits = 7;
    const std::string track = tags.track > 0 ? std::to_string(tags.track) : std::string();
    const std::array<std::pair<std::string_view, const std::string&>, 7> rows{{
        {"TIT2", tags.title},
        {"TPE1", tags.artist},
        {"TALB", tags.album},
        {"TYER", tags.year},
        {"TCON", tags.genre},
        {"TRCK", track},
        {"TENC", tags.encodedBy},
    }};
    std::string frames;
    for (const auto& [id, text] : rows) {
        appendFrame(frames, id, text);
    }
    std::string head(kHead);
    appendSize(head, static_cast<std::uint32_t>(frames.size()), kSevenBits);
    return head + frames;
}

std::error_code tagFreshFile(const std::string& path, const FreshTags& tags) {
    {
        base::RegularFile file(path, base::RegularFile::Access::ReadWrite);
        if (file.failure()) {
            return file.failure();
        }
        const std::string head = freshHead(tags);
        if (const std::error_code failure =
                MakeRoom(path, file, static_cast<std::int64_t>(head.size()), head)) {
            return failure;
        }
    }
    // Another file may stand there now.
    base::RegularFile file(path, base::RegularFile::Access::ReadWrite);
    if (file.failure()) {
        return file.failure();
    }
    const std::error_code failure = file.writeAt(file.size(), freshTail(tags));
    if (failure) {
        static_cast<void>(file.resize(file.size())); // half a tag would be noise
    }
    return failure;
}

} // namespace tovik::tags
