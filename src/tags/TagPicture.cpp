// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/TagPicture.h"

#include "base/RegularFile.h"
#include "tags/TagWalk.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace tovik::tags {

namespace {

constexpr std::int64_t kMostTagBytes = std::int64_t{16} << 20;

constexpr unsigned kFrontCover = 3;
constexpr unsigned kLastByteEncoding = 3;

unsigned byteAt(std::string_view bytes, std::size_t at) {
    return static_cast<unsigned char>(bytes.at(at));
}

struct Found {
    bool front = false;
    TagPicture picture;
};

/// Encoding, kind of the bytes, what it shows, words, bytes.
std::optional<Found> pictureIn(std::string_view content, bool old) {
    constexpr std::size_t kOldKindBytes = 3;
    if (content.empty() || byteAt(content, 0) > kLastByteEncoding) {
        return std::nullopt;
    }
    const unsigned encoding = byteAt(content, 0);
    content.remove_prefix(1);
    if (old) {
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
    const TagWalk walk(tag);
    const bool old = walk.version() == kOldestTag;
    std::optional<Found> best;
    for (const TagWalk::Frame& frame : walk.frames()) {
        if (frame.id != (old ? "PIC" : "APIC")) {
            continue;
        }
        const auto content = walk.contentOf(frame);
        auto found = content ? pictureIn(*content, old) : std::nullopt;
        if (found && (!best || (found->front && !best->front))) {
            best = std::move(found);
        }
    }
    return best ? std::optional(std::move(best->picture)) : std::nullopt;
}

std::optional<TagPicture> pictureOfFile(const std::string& path) {
    const base::RegularFile file(path, base::RegularFile::Access::Read);
    std::string tag;
    if (file.failure() || file.readAt(0, kTagHeadSize, tag) || TagWalk(tag).version() == 0) {
        return std::nullopt;
    }
    const std::int64_t wanted =
        static_cast<std::int64_t>(bodyBytes(tag)) + static_cast<std::int64_t>(kTagHeadSize);
    const std::int64_t most = std::min({wanted, kMostTagBytes, file.size()});
    if (file.readAt(0, static_cast<std::size_t>(most), tag)) {
        return std::nullopt;
    }
    return pictureOfTag(tag);
}

} // namespace tovik::tags
