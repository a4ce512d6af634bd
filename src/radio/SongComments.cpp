// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/SongComments.h"

#include "base/LittleEndian.h"
#include "base/Text.h"

#include <cstdint>
#include <optional>

namespace tovik::radio {

namespace {

constexpr std::string_view kVendor = "Tovik";
constexpr std::string_view kArtist = "artist=";
constexpr std::string_view kTitle = "title=";
constexpr std::size_t kNumberBytes = 4;

std::optional<std::uint32_t> takeNumber(std::string_view& block) {
    if (block.size() < kNumberBytes) {
        return std::nullopt;
    }
    const auto number = base::littleEndian<std::uint32_t>(base::bytesOf(block), 0);
    block.remove_prefix(kNumberBytes);
    return number;
}

std::optional<std::string_view> takeText(std::string_view& block) {
    const auto length = takeNumber(block);
    if (!length || block.size() < *length) {
        return std::nullopt;
    }
    const std::string_view text = block.substr(0, *length);
    block.remove_prefix(*length);
    return text;
}

/// Takes over the first of its name.
void take(std::string& to, std::string_view comment, std::string_view name) {
    if (to.empty() && base::equalsIgnoringCase(comment.substr(0, name.size()), name)) {
        to = comment.substr(name.size());
    }
}

void appendText(std::string& to, std::string_view text) {
    base::appendLittleEndian(to, static_cast<std::uint32_t>(text.size()));
    to += text;
}

} // namespace

std::string songInComments(std::string_view block) {
    std::string artist;
    std::string title;
    if (!takeText(block)) {
        return {};
    }
    const std::uint32_t count = takeNumber(block).value_or(0);
    for (std::uint32_t i = 0; i < count; ++i) {
        const auto comment = takeText(block);
        if (!comment) {
            break;
        }
        take(artist, *comment, kArtist);
        take(title, *comment, kTitle);
    }
    return artist.empty() || title.empty() ? artist + title : artist + " - " + title;
}

std::string commentsOf(const std::string& artist, const std::string& title) {
    std::string block;
    appendText(block, kVendor);
    const std::uint32_t count = (artist.empty() ? 0U : 1U) + (title.empty() ? 0U : 1U);
    base::appendLittleEndian(block, count);
    if (!artist.empty()) {
        appendText(block, std::string(kArtist) + artist);
    }
    if (!title.empty()) {
        appendText(block, std::string(kTitle) + title);
    }
    return block;
}

} // namespace tovik::radio
