// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/Id3v2Reader.h"

#include "tags/BigEndian.h"

#include <algorithm>
#include <string>

namespace tovik::tags {

namespace {

constexpr std::int64_t kBlockBytes = 4096;
constexpr std::int64_t kOverlap = 3; ///< a mark across the edge of two blocks is found
constexpr std::string_view kSound = "\xFF\xFB";
constexpr std::string_view kNoId("\0\0\0\0", 4);
constexpr std::uint8_t kFirstVersion = 2;
constexpr std::uint8_t kLastVersion = 4;
constexpr std::size_t kSizeAt = 4;
constexpr std::size_t kFlagsAt = 8;

} // namespace

std::int64_t FindTag(FileWindow& file) {
    for (std::int64_t position = 1;; position += kBlockBytes - kOverlap) {
        const bool last = position + kBlockBytes >= file.size();
        const std::int64_t length = last ? file.size() - position : kBlockBytes;
        const std::string_view block =
            file.at(position - 1, static_cast<std::size_t>(std::max<std::int64_t>(length, 0)));
        if (const std::size_t mark = block.find(kTagMark); mark != std::string_view::npos) {
            return position + static_cast<std::int64_t>(mark + kTagMark.size());
        }
        if (last || block.find(kSound) != std::string_view::npos) {
            return 0;
        }
    }
}

std::uint8_t ParseTag(FileWindow& file, std::int64_t position,
                      const std::function<void(const RawFrame&)>& take) {
    // Version, revision, flags, size.
    const std::string_view head = file.at(position - 1, 7);
    if (head.empty()) {
        return 0;
    }
    const auto version = static_cast<std::uint8_t>(head[0]);
    if (version <= kFirstVersion || version > kLastVersion || head.size() < 7) {
        return version;
    }
    const std::int32_t tagSize = FromBigEndian(head.substr(3));
    std::int64_t offset = position - 1 + 7;
    do {
        const std::string frameHead(file.at(offset, kFrameHeadBytes));
        if (frameHead.size() < kFrameHeadBytes || frameHead.starts_with(kNoId)) {
            break;
        }
        const std::int32_t size = FromBigEndian(std::string_view(frameHead).substr(kSizeAt));
        const std::int64_t contentAt = offset + static_cast<std::int64_t>(kFrameHeadBytes);
        if (size < 0 || contentAt + size > file.size()) {
            break;
        }
        const std::string_view content = file.at(contentAt, static_cast<std::size_t>(size));
        if (content.size() != static_cast<std::size_t>(size)) {
            break;
        }
        take({offset, std::string_view(frameHead).substr(0, kSizeAt), content,
              std::string_view(frameHead).substr(kFlagsAt)});
        offset = contentAt + size;
        // The start of the tag is not added, deliberately: places count from 1.
    } while (offset + 1 <= tagSize);
    return version;
}

std::string_view frameText(std::string_view content) noexcept {
    const std::size_t last = content.rfind('\0');
    return last == std::string_view::npos ? content : content.substr(last + 1);
}

} // namespace tovik::tags
