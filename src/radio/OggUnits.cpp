// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/OggUnits.h"

#include "base/LittleEndian.h"
#include "radio/SongComments.h"

#include <algorithm>
#include <array>
#include <vector>

namespace tovik::radio {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view kMark = "OggS";
constexpr std::size_t kHeadBytes = 27;
constexpr std::size_t kFlagsAt = 5;
constexpr std::size_t kGranuleAt = 6;
constexpr std::size_t kChecksumAt = 22;
constexpr std::size_t kChecksumBytes = 4;
constexpr std::size_t kSegmentsAt = 26;
constexpr std::uint8_t kBegins = 2;
constexpr std::uint8_t kFullSegment = 255;

/// What stands before the comments in the packet that holds them.
constexpr std::array kCommentMarks{"\x03vorbis"sv, "OpusTags"sv};
constexpr std::string_view kFlacMark = "\x7F"
                                       "FLAC";
constexpr std::uint8_t kFlacComments = 4;
constexpr std::uint8_t kFlacKind = 0x7F;
constexpr std::size_t kFlacBlockHead = 4;

constexpr std::array<std::uint32_t, 256> makeTable() {
    constexpr std::uint32_t kPolynomial = 0x04C11DB7;
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
        std::uint32_t value = byte << 24U;
        for (int bit = 0; bit < 8; ++bit) {
            value = value << 1U ^ ((value & 0x80000000U) != 0 ? kPolynomial : 0U);
        }
        table.at(byte) = value;
    }
    return table;
}

constexpr auto kTable = makeTable();

std::span<const std::uint8_t> numbersOf(Bytes bytes) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes as numbers
    return {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()};
}

/// Of a page, in which its own field counts as zeros.
std::uint32_t checksum(std::span<const std::uint8_t> page) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < page.size(); ++i) {
        const bool own = i >= kChecksumAt && i < kChecksumAt + kChecksumBytes;
        value = value << 8U ^ kTable.at((value >> 24U ^ (own ? 0U : page[i])) & 0xFFU);
    }
    return value;
}

/// Of the page at the beginning; 0 when more bytes are needed.
std::size_t pageLength(std::span<const std::uint8_t> bytes) {
    if (bytes.size() < kHeadBytes || bytes.size() < kHeadBytes + bytes[kSegmentsAt]) {
        return 0;
    }
    std::size_t length = kHeadBytes + bytes[kSegmentsAt];
    for (const std::uint8_t segment : bytes.subspan(kHeadBytes, bytes[kSegmentsAt])) {
        length += segment;
    }
    return bytes.size() < length ? 0 : length;
}

/// The first place, behind the first byte, where a page may begin.
std::size_t nextMark(Bytes bytes) {
    const std::span<const std::uint8_t> rest = numbersOf(bytes).subspan(1);
    const auto found = std::search(
        rest.begin(), rest.end(), kMark.begin(), kMark.end(),
        [](std::uint8_t byte, char sign) { return byte == static_cast<std::uint8_t>(sign); });
    if (found != rest.end()) {
        return static_cast<std::size_t>(found - rest.begin()) + 1;
    }
    return bytes.size() - std::min(bytes.size() - 1, kMark.size() - 1);
}

/// The packets in whole pages.
std::vector<std::string> packetsOf(std::string_view pages) {
    std::vector<std::string> packets;
    std::string packet;
    while (!pages.empty()) {
        const auto bytes = base::bytesOf(pages);
        const std::size_t length = pageLength(bytes);
        if (length == 0) {
            break;
        }
        std::string_view body = pages.substr(kHeadBytes + bytes[kSegmentsAt]);
        for (const std::uint8_t segment : bytes.subspan(kHeadBytes, bytes[kSegmentsAt])) {
            packet += body.substr(0, segment);
            body.remove_prefix(segment);
            if (segment < kFullSegment) {
                packets.push_back(std::move(packet));
                packet.clear();
            }
        }
        pages.remove_prefix(length);
    }
    return packets;
}

} // namespace

bool OggUnits::begins(Bytes bytes) {
    const auto numbers = numbersOf(bytes);
    return numbers.size() > kMark.size() &&
           std::equal(kMark.begin(), kMark.end(), numbers.begin(),
                      [](char sign, std::uint8_t byte) {
                          return byte == static_cast<std::uint8_t>(sign);
                      });
}

UnitStep OggUnits::next(Bytes bytes, bool last) {
    std::size_t skip = 0;
    while (true) {
        const Bytes rest = bytes.subspan(skip);
        if (rest.size() <= kMark.size()) {
            return {.skip = last ? bytes.size() : skip};
        }
        if (!begins(rest)) {
            skip += nextMark(rest);
            continue;
        }
        const auto numbers = numbersOf(rest);
        const std::size_t length = pageLength(numbers);
        if (length == 0) {
            return {.skip = last ? bytes.size() : skip};
        }
        const auto page = numbers.first(length);
        if (checksum(page) != base::littleEndian<std::uint32_t>(page, kChecksumAt)) {
            skip += nextMark(rest);
            continue;
        }
        const bool begin = (page[kFlagsAt] & kBegins) != 0;
        const auto granule = base::littleEndian<std::int64_t>(page, kGranuleAt);
        const bool fresh = begin && !beginning_;
        beginning_ = begin;
        // Pages of headers are at the beginning of time; -1: no packet ends on the page.
        inHead_ = begin || (inHead_ && granule <= 0);
        return {.skip = skip, .length = length, .head = inHead_, .fresh = fresh};
    }
}

std::string OggUnits::titleOf(std::string_view head) const {
    const std::vector<std::string> packets = packetsOf(head);
    const bool flac = !packets.empty() && packets.front().starts_with(kFlacMark);
    for (const std::string_view packet : packets) {
        for (const std::string_view mark : kCommentMarks) {
            if (packet.starts_with(mark)) {
                return songInComments(packet.substr(mark.size()));
            }
        }
        const bool isBlock =
            flac && packet.size() > kFlacBlockHead &&
            (static_cast<std::uint8_t>(packet.front()) & kFlacKind) == kFlacComments;
        if (isBlock) {
            return songInComments(packet.substr(kFlacBlockHead));
        }
    }
    return {};
}

} // namespace tovik::radio
