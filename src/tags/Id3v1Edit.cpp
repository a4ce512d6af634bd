// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/Id3v1Edit.h"

#include "base/Text.h"
#include "base/Windows1252.h"
#include "tags/Id3v1Bytes.h"
#include "tags/ShownField.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace tovik::tags {

namespace {

constexpr std::size_t kCommentAt = 97;
constexpr std::size_t kZeroAt = 125; ///< a zero byte, where a track stands behind it
constexpr std::size_t kTrackAt = 126;
constexpr std::size_t kGenreAt = 127;
constexpr std::size_t kLongComment = 30; ///< without a track

struct Place {
    EditField field;
    std::size_t at;
    std::size_t width;
};

constexpr std::array kPlaces{Place{EditField::title, 3, 30}, Place{EditField::artist, 33, 30},
                             Place{EditField::album, 63, 30}, Place{EditField::year, 93, 4}};

bool hasTrack(std::string_view tag) {
    return tag[kZeroAt] == '\0' && tag[kTrackAt] != '\0';
}

/// The tag, or nothing.
std::string tagOf(TagBytes& bytes) {
    const auto size = static_cast<std::int64_t>(kId3v1Bytes);
    std::string tag =
        bytes.size() < size ? std::string() : bytes.read(bytes.size() - size, kId3v1Bytes);
    return tag.size() == kId3v1Bytes && tag.starts_with(kId3v1Mark) ? tag : std::string();
}

std::string shown(std::string_view field) {
    return base::displayText(shownField(field));
}

void put(std::string& tag, std::size_t at, std::size_t width, const std::string& text) {
    std::string field(base::cutToWidth(base::windows1252FromUtf8(text).value_or(text), width));
    field.resize(width, '\0');
    tag.replace(at, width, field);
}

/// A number, or another one where the text is none.
char numberOf(const std::string& text, unsigned char other) {
    unsigned char number = other;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    return static_cast<char>(read.ec == std::errc() ? number : other);
}

const std::optional<std::string>& textOf(const TagChange& change, EditField field) {
    return change.texts.at(static_cast<std::size_t>(field));
}

void apply(std::string& tag, const TagChange& change) {
    constexpr unsigned char kNoGenre = 255;
    for (const Place& place : kPlaces) {
        if (const auto& text = textOf(change, place.field)) {
            put(tag, place.at, place.width, *text);
        }
    }
    if (const auto& track = textOf(change, EditField::track)) {
        tag[kTrackAt] = numberOf(*track, 0);
        tag[kZeroAt] = '\0';
    }
    if (const auto& comment = textOf(change, EditField::comment)) {
        put(tag, kCommentAt, hasTrack(tag) ? kLongComment - 2 : kLongComment, *comment);
    }
    if (const auto& genre = textOf(change, EditField::genre)) {
        tag[kGenreAt] = numberOf(*genre, kNoGenre);
    }
}

std::string emptyTag() {
    std::string tag(kId3v1Mark);
    tag.resize(kId3v1Bytes, '\0');
    tag[kGenreAt] = '\xFF';
    return tag;
}

} // namespace

EditTag readVersion1(TagBytes& bytes) {
    EditTag edit;
    const std::string tag = tagOf(bytes);
    if (tag.empty()) {
        return edit;
    }
    edit.there = true;
    const auto text = [&edit](EditField field) -> std::string& {
        return edit.texts.at(static_cast<std::size_t>(field));
    };
    const std::string_view view = tag;
    for (const Place& place : kPlaces) {
        text(place.field) = shown(view.substr(place.at, place.width));
    }
    const bool track = hasTrack(view);
    text(EditField::comment) =
        shown(view.substr(kCommentAt, track ? kLongComment - 2 : kLongComment));
    text(EditField::track) =
        track ? std::to_string(static_cast<unsigned char>(tag[kTrackAt])) : std::string();
    text(EditField::genre) = std::to_string(static_cast<unsigned char>(tag[kGenreAt]));
    return edit;
}

void changeVersion1(TagBytes& bytes, const TagChange& change) {
    std::string tag = tagOf(bytes);
    const auto old = static_cast<std::int64_t>(tag.size());
    if (!change.keep) {
        bytes.replace(bytes.size() - old, old, {});
        return;
    }
    if (!change.any()) {
        return;
    }
    if (tag.empty()) {
        tag = emptyTag();
    }
    apply(tag, change);
    bytes.replace(bytes.size() - old, old, tag);
}

} // namespace tovik::tags
