// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/OggHead.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tovik::sound {
namespace {

constexpr std::string_view kPage = "OggS";
constexpr std::size_t kFlagsAt = 5;
constexpr std::byte kBeginsStream{2};
constexpr std::size_t kSegmentCountAt = 26;
constexpr std::int64_t kWindowBytes = 1 << 16;
constexpr std::size_t kLargestHead = kSegmentCountAt + 1 + 255;

struct Announcement {
    std::string_view magic; ///< how the first packet begins
    OggContent content;
};

constexpr std::array<Announcement, 2> kAnnouncements = {{
    {"\x01vorbis", OggContent::vorbis}, // Vorbis I specification, 4.2.1
    {"\x7F"
     "FLAC",
     OggContent::flac}, // RFC 9639, 10.1
}};

bool beginsWith(std::span<const std::byte> bytes, std::string_view text) {
    return bytes.size() >= text.size() &&
           std::ranges::equal(std::as_bytes(std::span(text)), bytes.first(text.size()));
}

} // namespace

OggContent oggContent(const ByteStore& store) {
    const std::vector<std::byte> bytes = readBytes(store, 0, kLargestHead + 8);
    if (bytes.size() <= kSegmentCountAt || !beginsWith(bytes, kPage)) {
        return OggContent::none;
    }
    const std::size_t packetAt =
        kSegmentCountAt + 1 + std::to_integer<std::size_t>(bytes[kSegmentCountAt]);
    const auto packet = std::span(bytes).subspan(std::min(packetAt, bytes.size()));
    const auto* const row = std::ranges::find_if(
        kAnnouncements, [packet](const Announcement& a) { return beginsWith(packet, a.magic); });
    return row == kAnnouncements.end() ? OggContent::other : row->content;
}

// Looked for from the end; the windows overlap by what tells a page.
std::int64_t lastLinkAt(const ByteStore& store) {
    constexpr auto kLookedAt = static_cast<std::int64_t>(kFlagsAt + 1);
    for (std::int64_t end = store.size(); end > kLookedAt;) {
        const std::int64_t begin = std::max<std::int64_t>(end - kWindowBytes, 0);
        const auto bytes = readBytes(store, begin, static_cast<std::size_t>(end - begin));
        for (std::size_t n = bytes.size(); n-- > 0;) {
            const auto page = std::span(bytes).subspan(n);
            if (page.size() > kFlagsAt && beginsWith(page, kPage) &&
                (page[kFlagsAt] & kBeginsStream) != std::byte{0}) {
                return begin + static_cast<std::int64_t>(n);
            }
        }
        end = begin == 0 ? 0 : begin + kLookedAt - 1;
    }
    return 0;
}

} // namespace tovik::sound
