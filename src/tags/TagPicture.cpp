// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/TagPicture.h"

#include "base/RegularFile.h"

#include <algorithm>
#include <cstddef>

namespace tovik::tags {

namespace {

constexpr std::int64_t kMostTagBytes = std::int64_t{16} << 20;

constexpr std::string_view kMark = "ID3";
constexpr std::size_t kHeadBytes = 10;
constexpr std::size_t kVersionAt = 3;
constexpr std::size_t kFlagsAt = 5;
constexpr std::size_t kSizeAt = 6;
constexpr std::size_t kSizeBytes = 4;
constexpr unsigned kOldVersion = 2; ///< with ids of three letters
constexpr unsigned kNewVersion = 4; ///< with sizes of seven bits a byte

constexpr unsigned kUnsynchronised = 0x80; ///< of a tag
constexpr unsigned kExtended = 0x40;
constexpr unsigned kFrontCover = 3;
constexpr unsigned kLastByteEncoding = 3;

/// How a version writes its frames.
struct FrameForm {
    std::size_t headBytes;
    std::size_t idBytes;
    std::size_t sizeBytes;
    std::string_view pictureId;
    // Of the second byte of flags:
    unsigned unreadable; ///< compressed or encrypted
    unsigned grouped;    ///< a byte stands in front of the content
    unsigned measured;   ///< four bytes stand in front of it
    unsigned unsynchronised;
};

constexpr FrameForm kForm22{6, 3, 3, "PIC", 0, 0, 0, 0};
constexpr FrameForm kForm23{10, 4, 4, "APIC", 0xC0, 0x20, 0, 0};
constexpr FrameForm kForm24{10, 4, 4, "APIC", 0x0C, 0x40, 0x01, 0x02};

unsigned byteAt(std::string_view bytes, std::size_t at) {
    return static_cast<unsigned char>(bytes.at(at));
}

std::size_t number(std::string_view bytes, unsigned bitsPerByte) {
    std::size_t value = 0;
    for (const char byte : bytes) {
        value = (value << bitsPerByte) | static_cast<unsigned char>(byte);
    }
    return value;
}

bool isSevenBits(std::string_view bytes) {
    return std::ranges::all_of(bytes, [](char byte) { return (byte & 0x80) == 0; });
}

std::size_t plain(std::string_view bytes) {
    return number(bytes, 8);
}

/// Seven bits a byte, or what wrote it did not know of that.
std::size_t sevenBits(std::string_view bytes) {
    return isSevenBits(bytes) ? number(bytes, 7) : plain(bytes);
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

/// The bytes behind the words in front of a picture; nothing where they do not end.
std::optional<std::string_view> behindText(std::string_view text, bool wide) {
    const std::size_t step = wide ? 2 : 1;
    for (std::size_t at = 0; at + step <= text.size(); at += step) {
        if (text[at] == '\0' && (!wide || text[at + 1] == '\0')) {
            return text.substr(at + step);
        }
    }
    return std::nullopt;
}

struct Found {
    bool front = false;
    TagPicture picture;
};

/// Encoding, kind of the bytes, what it shows, words, bytes.
std::optional<Found> pictureIn(std::string_view content, const FrameForm& form) {
    constexpr std::size_t kOldKindBytes = 3;
    if (content.empty() || byteAt(content, 0) > kLastByteEncoding) {
        return std::nullopt;
    }
    const unsigned encoding = byteAt(content, 0);
    content.remove_prefix(1);
    if (form.idBytes == kForm22.idBytes) {
        content.remove_prefix(std::min(kOldKindBytes, content.size()));
    } else {
        content = behindText(content, false).value_or(std::string_view());
    }
    if (content.empty()) {
        return std::nullopt;
    }
    const unsigned shows = byteAt(content, 0);
    const auto bytes = behindText(content.substr(1), encoding == 1 || encoding == 2);
    const auto kind = pictureForm(bytes.value_or(std::string_view()));
    if (!kind) {
        return std::nullopt;
    }
    return Found{shows == kFrontCover, {*kind, std::string(*bytes)}};
}

/// The content of a frame as it was before it was put into the tag.
std::optional<std::string> contentOf(std::string_view frame, const FrameForm& form) {
    const unsigned flags =
        form.headBytes == kForm22.headBytes ? 0 : byteAt(frame, form.headBytes - 1);
    const std::size_t inFront =
        ((flags & form.grouped) != 0 ? 1U : 0U) + ((flags & form.measured) != 0 ? kSizeBytes : 0U);
    std::string_view content = frame.substr(form.headBytes);
    if ((flags & form.unreadable) != 0 || inFront > content.size()) {
        return std::nullopt;
    }
    content.remove_prefix(inFront);
    return (flags & form.unsynchronised) != 0 ? synchronised(content) : std::string(content);
}

std::size_t frameSize(std::string_view frames, std::size_t at, const FrameForm& form,
                      bool sevenBitSizes) {
    const std::string_view bytes = frames.substr(at + form.idBytes, form.sizeBytes);
    const std::size_t asTold = plain(bytes);
    if (!sevenBitSizes) {
        return asTold;
    }
    // Some programs wrote plain sizes here, too: what follows tells.
    const std::size_t asMeant = sevenBits(bytes);
    const std::size_t content = at + form.headBytes;
    const bool better = asTold != asMeant && !goesOnAt(frames, content + asMeant, form) &&
                        goesOnAt(frames, content + asTold, form);
    return better ? asTold : asMeant;
}

std::optional<TagPicture> firstOf(std::string_view frames, const FrameForm& form,
                                  bool sevenBitSizes) {
    std::optional<Found> best;
    std::size_t at = 0;
    while (at + form.headBytes <= frames.size() && isId(frames.substr(at, form.idBytes))) {
        const std::size_t size = frameSize(frames, at, form, sevenBitSizes);
        if (size > frames.size() - at - form.headBytes) {
            break;
        }
        if (frames.substr(at).starts_with(form.pictureId)) {
            const auto content = contentOf(frames.substr(at, form.headBytes + size), form);
            auto found = content ? pictureIn(*content, form) : std::nullopt;
            if (found && (!best || (found->front && !best->front))) {
                best = std::move(found);
            }
        }
        at += form.headBytes + size;
    }
    return best ? std::optional(std::move(best->picture)) : std::nullopt;
}

/// The frames behind an extended head, whose size counts itself only in the newest version.
std::string_view behindExtension(std::string_view body, bool newest) {
    if (body.size() < kSizeBytes) {
        return {};
    }
    const std::string_view told = body.substr(0, kSizeBytes);
    const std::size_t size = newest ? sevenBits(told) : plain(told) + kSizeBytes;
    return body.substr(std::min(size, body.size()));
}

/// Of the head's two readings the larger one: what wrote plain sizes must not lose its last frames,
/// and what stands behind the tag is no frame.
std::size_t bodyBytes(std::string_view head) {
    const std::string_view told = head.substr(kSizeAt, kSizeBytes);
    return std::max(plain(told), sevenBits(told));
}

} // namespace

std::optional<PictureForm> pictureForm(std::string_view bytes) noexcept {
    if (bytes.starts_with("\xFF\xD8\xFF")) {
        return PictureForm::jpeg;
    }
    if (bytes.starts_with("\x89PNG\r\n\x1A\n")) {
        return PictureForm::png;
    }
    return std::nullopt;
}

std::optional<TagPicture> pictureOfTag(std::string_view tag) {
    if (tag.size() < kHeadBytes || !tag.starts_with(kMark)) {
        return std::nullopt;
    }
    const unsigned version = byteAt(tag, kVersionAt);
    const unsigned flags = byteAt(tag, kFlagsAt);
    if (version < kOldVersion || version > kNewVersion ||
        (version == kOldVersion && (flags & kExtended) != 0)) { // compressed as a whole
        return std::nullopt;
    }
    std::string_view body = tag.substr(kHeadBytes, bodyBytes(tag));
    std::string whole;
    if (version < kNewVersion && (flags & kUnsynchronised) != 0) {
        whole = synchronised(body);
        body = whole;
    }
    if ((flags & kExtended) != 0) {
        body = behindExtension(body, version == kNewVersion);
    }
    if (version == kOldVersion) {
        return firstOf(body, kForm22, false);
    }
    return version == kNewVersion ? firstOf(body, kForm24, true) : firstOf(body, kForm23, false);
}

std::optional<TagPicture> pictureOfFile(const std::string& path) {
    const base::RegularFile file(path, base::RegularFile::Access::Read);
    std::string tag;
    if (file.failure() || file.readAt(0, kHeadBytes, tag) || tag.size() < kHeadBytes ||
        !tag.starts_with(kMark)) {
        return std::nullopt;
    }
    const std::int64_t wanted =
        static_cast<std::int64_t>(bodyBytes(tag)) + static_cast<std::int64_t>(kHeadBytes);
    const std::int64_t most = std::min({wanted, kMostTagBytes, file.size()});
    if (file.readAt(0, static_cast<std::size_t>(most), tag)) {
        return std::nullopt;
    }
    return pictureOfTag(tag);
}

} // namespace tovik::tags
