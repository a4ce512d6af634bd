// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/TagWalk.h"

#include <algorithm>

namespace tovik::tags {

namespace {

constexpr std::string_view kMark = "ID3";
constexpr std::size_t kVersionAt = 3;
constexpr std::size_t kFlagsAt = 5;
constexpr std::size_t kSizeAt = 6;
constexpr std::size_t kSizeBytes = 4;

constexpr unsigned kUnsynchronised = 0x80; ///< of a tag
constexpr unsigned kExtended = 0x40;

constexpr FrameForm kForm22{6, 3, 3, 0, 0, 0, 0};
constexpr FrameForm kForm23{10, 4, 4, 0xC0, 0x20, 0, 0};
constexpr FrameForm kForm24{10, 4, 4, 0x0C, 0x40, 0x01, 0x02};

unsigned byteAt(std::string_view bytes, std::size_t at) {
    return static_cast<unsigned char>(bytes.at(at));
}

std::size_t plain(std::string_view bytes) {
    return tagNumber(bytes, 8);
}

/// Takes out the zeros that keep players from taking a tag for sound.
std::string synchronised(std::string_view bytes) {
    std::string result;
    result.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        result += bytes[i];
        if (bytes[i] == '\xFF' && i + 1 < bytes.size() && bytes[i + 1] == '\0') {
            ++i;
        }
    }
    return result;
}

bool isId(std::string_view id) {
    return std::ranges::all_of(
        id, [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); });
}

/// Whether another frame, padding or the end stands there.
bool goesOnAt(std::string_view frames, std::size_t at, const FrameForm& form) {
    if (at >= frames.size()) {
        return at == frames.size();
    }
    return frames[at] == '\0' || isId(frames.substr(at, form.idBytes));
}

std::size_t frameSize(std::string_view frames, std::size_t at, const FrameForm& form,
                      bool sevenBitSizes) {
    const std::string_view bytes = frames.substr(at + form.idBytes, form.sizeBytes);
    const std::size_t asTold = plain(bytes);
    if (!sevenBitSizes) {
        return asTold;
    }
    // Some programs wrote plain sizes here, too: what follows tells.
    const std::size_t asMeant = tagSize(bytes);
    const std::size_t content = at + form.headBytes;
    const bool better = asTold != asMeant && !goesOnAt(frames, content + asMeant, form) &&
                        goesOnAt(frames, content + asTold, form);
    return better ? asTold : asMeant;
}

/// The size of an extended head, which counts itself only in the newest version.
std::size_t extensionBytes(std::string_view body, bool newest) {
    if (body.size() < kSizeBytes) {
        return body.size();
    }
    const std::string_view told = body.substr(0, kSizeBytes);
    return std::min(newest ? tagSize(told) : plain(told) + kSizeBytes, body.size());
}

} // namespace

std::size_t tagNumber(std::string_view bytes, unsigned bitsPerByte) noexcept {
    std::size_t value = 0;
    for (const char byte : bytes) {
        value = (value << bitsPerByte) | static_cast<unsigned char>(byte);
    }
    return value;
}

std::size_t tagSize(std::string_view bytes) noexcept {
    constexpr unsigned kHighest = 0x80;
    const bool isSevenBits = std::ranges::all_of(
        bytes, [](char byte) { return (static_cast<unsigned char>(byte) & kHighest) == 0; });
    return isSevenBits ? tagNumber(bytes, 7) : plain(bytes);
}

std::size_t bodyBytes(std::string_view head) noexcept {
    const std::string_view told = head.substr(kSizeAt, kSizeBytes);
    return std::max(plain(told), tagSize(told));
}

std::optional<std::string_view> behindText(std::string_view text, bool wide) {
    const std::size_t step = wide ? 2 : 1;
    for (std::size_t at = 0; at + step <= text.size(); at += step) {
        if (text[at] == '\0' && (!wide || text[at + 1] == '\0')) {
            return text.substr(at + step);
        }
    }
    return std::nullopt;
}

TagWalk::TagWalk(std::string_view tag) {
    if (tag.size() < kTagHeadSize || !tag.starts_with(kMark)) {
        return;
    }
    const unsigned version = byteAt(tag, kVersionAt);
    const unsigned flags = byteAt(tag, kFlagsAt);
    if (version < kOldestTag || version > kNewestTag ||
        (version == kOldestTag && (flags & kExtended) != 0)) { // compressed as a whole
        return;
    }
    version_ = version;
    std::string_view body = tag.substr(kTagHeadSize, bodyBytes(tag));
    std::size_t told = std::min(tagSize(tag.substr(kSizeAt, kSizeBytes)), body.size());
    if (version < kNewestTag && (flags & kUnsynchronised) != 0) {
        told = synchronised(body.substr(0, told)).size();
        body_ = synchronised(body);
        body = body_;
    }
    usedBytes_ = kTagHeadSize;
    if ((flags & kExtended) != 0) {
        const std::size_t extension = extensionBytes(body, version == kNewestTag);
        usedBytes_ += extension;
        body = body.substr(extension);
        told -= std::min(extension, told);
    }
    walk(body, told);
}

const FrameForm& TagWalk::form() const noexcept {
    if (version_ == kOldestTag) {
        return kForm22;
    }
    return version_ == kNewestTag ? kForm24 : kForm23;
}

void TagWalk::walk(std::string_view body, std::size_t told) {
    const FrameForm& how = form();
    std::size_t at = 0;
    while (at + how.headBytes <= body.size() && isId(body.substr(at, how.idBytes))) {
        const std::size_t size = frameSize(body, at, how, version_ == kNewestTag);
        if (size > body.size() - at - how.headBytes) {
            complete_ = false;
            break;
        }
        const std::string_view bytes = body.substr(at, how.headBytes + size);
        frames_.push_back({.id = bytes.substr(0, how.idBytes), .bytes = bytes});
        at += bytes.size();
    }
    if (complete_ && at < told && body[at] != '\0') {
        rest_ = body.substr(at, told - at);
    }
    usedBytes_ += at + rest_.size();
}

std::optional<std::string> TagWalk::contentOf(const Frame& frame) const {
    const FrameForm& how = form();
    const unsigned flags =
        how.headBytes == kForm22.headBytes ? 0 : byteAt(frame.bytes, how.headBytes - 1);
    const std::size_t inFront =
        ((flags & how.grouped) != 0 ? 1U : 0U) + ((flags & how.measured) != 0 ? kSizeBytes : 0U);
    std::string_view content = frame.bytes.substr(how.headBytes);
    if ((flags & how.unreadable) != 0 || inFront > content.size()) {
        return std::nullopt;
    }
    content.remove_prefix(inFront);
    return (flags & how.unsynchronised) != 0 ? synchronised(content) : std::string(content);
}

} // namespace tovik::tags
