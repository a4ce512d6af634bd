// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/OggLinks.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <span>
#include <string_view>

namespace tovik::sound {
namespace {

constexpr std::string_view kPage = "OggS";
constexpr std::size_t kFlagsAt = 5;
constexpr std::byte kBeginsStream{2};
constexpr std::size_t kGranuleAt = 6;
constexpr std::size_t kSerialAt = 14;
constexpr std::size_t kSegmentCountAt = 26;
constexpr std::size_t kHeadBytes = kSegmentCountAt + 1;
constexpr std::size_t kMostSegments = 255;
constexpr std::int64_t kLargestPage = kHeadBytes + kMostSegments + kMostSegments * 255;

struct Page {
    bool beginsStream = false;
    std::int64_t frames = 0; ///< played until its end; -1 when nothing ends in it
    std::uint64_t serial = 0;
    std::int64_t bytes = 0;
};

std::uint64_t littleEndian(std::span<const std::byte> bytes) {
    return std::accumulate(bytes.rbegin(), bytes.rend(), std::uint64_t{0},
                           [](std::uint64_t sum, std::byte byte) {
                               return sum << 8U | std::to_integer<std::uint64_t>(byte);
                           });
}

/// The page whose head the bytes begin with.
std::optional<Page> pageIn(std::span<const std::byte> bytes) {
    if (bytes.size() < kHeadBytes ||
        !std::ranges::equal(std::as_bytes(std::span(kPage)), bytes.first(kPage.size()))) {
        return std::nullopt;
    }
    const auto segments = std::to_integer<std::size_t>(bytes[kSegmentCountAt]);
    if (bytes.size() < kHeadBytes + segments) {
        return std::nullopt;
    }
    auto size = static_cast<std::int64_t>(kHeadBytes + segments);
    for (const std::byte segment : bytes.subspan(kHeadBytes, segments)) {
        size += std::to_integer<std::int64_t>(segment);
    }
    return Page{.beginsStream = (bytes[kFlagsAt] & kBeginsStream) != std::byte{0},
                .frames = static_cast<std::int64_t>(littleEndian(bytes.subspan(kGranuleAt, 8))),
                .serial = littleEndian(bytes.subspan(kSerialAt, 4)),
                .bytes = size};
}

std::optional<Page> pageAt(const ByteStore& store, std::int64_t at) {
    return pageIn(readBytes(store, at, kHeadBytes + kMostSegments));
}

std::optional<Page> lastPage(const ByteStore& store) {
    const std::int64_t begin = std::max<std::int64_t>(store.size() - 2 * kLargestPage, 0);
    const auto bytes = readBytes(store, begin, static_cast<std::size_t>(2 * kLargestPage));
    for (std::size_t n = bytes.size(); n-- > 0;) {
        if (const auto page = pageIn(std::span(bytes).subspan(n))) {
            return page;
        }
    }
    return std::nullopt;
}

} // namespace

bool endsWithFirstLink(const ByteStore& store, std::int64_t frames) {
    const auto first = pageAt(store, 0);
    const auto last = lastPage(store);
    return first && last && first->serial == last->serial && last->frames == frames;
}

std::vector<OggLink> oggLinks(const ByteStore& store) {
    std::vector<OggLink> links;
    bool inHead = false; // streams that sound together begin together
    std::int64_t at = 0;
    const std::int64_t size = store.size();
    for (auto page = pageAt(store, at); page && at + page->bytes <= size;
         page = pageAt(store, at)) {
        if (page->beginsStream && !inHead) {
            links.push_back({.begin = at});
        }
        inHead = page->beginsStream;
        at += page->bytes;
        if (!links.empty()) {
            links.back().end = at;
            links.back().frames = std::max(links.back().frames, page->frames);
        }
    }
    return links;
}

} // namespace tovik::sound
