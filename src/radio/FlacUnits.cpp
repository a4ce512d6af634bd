// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/FlacUnits.h"

#include "radio/SongComments.h"

#include <algorithm>
#include <array>

namespace tovik::radio {

namespace {

constexpr std::string_view kMark = "fLaC";
constexpr std::size_t kBlockHead = 4;
constexpr std::uint32_t kLastBlock = 0x80;
constexpr std::uint32_t kComments = 4;
constexpr std::size_t kMostBlock = std::size_t{1} << 20;

/// The first block, behind its head: where the count of samples begins, with the half of a byte.
constexpr std::size_t kFormBytes = 34;
constexpr std::size_t kCountAt = 13;
constexpr std::uint32_t kNoCount = 0xF0;

/// No frame of a station is that long.
constexpr std::size_t kMostFrame = std::size_t{128} << 10;
constexpr int kMostTries = 64;
constexpr std::size_t kLongestHead = 16;
constexpr std::size_t kShortestFrame = 10;
constexpr std::size_t kNumberAt = 4;
constexpr std::size_t kChecksumBytes = 2;

std::uint32_t byteAt(Bytes bytes, std::size_t at) {
    return std::to_integer<std::uint32_t>(bytes[at]);
}

template <typename Number>
constexpr std::array<Number, 256> makeTable(std::uint32_t polynomial) {
    constexpr unsigned kBits = 8 * sizeof(Number);
    std::array<Number, 256> table{};
    for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
        std::uint32_t value = byte << (kBits - 8);
        for (int bit = 0; bit < 8; ++bit) {
            value = value << 1U ^ ((value >> (kBits - 1) & 1U) != 0 ? polynomial : 0U);
        }
        table.at(byte) = static_cast<Number>(value);
    }
    return table;
}

constexpr auto kTable8 = makeTable<std::uint8_t>(0x07);
constexpr auto kTable16 = makeTable<std::uint16_t>(0x8005);

std::uint32_t checksum8(Bytes bytes) {
    std::uint32_t value = 0;
    for (const std::byte byte : bytes) {
        value = kTable8.at(value ^ std::to_integer<std::uint32_t>(byte));
    }
    return value;
}

std::uint32_t addTo16(std::uint32_t value, std::byte byte) {
    const std::uint32_t index = (value >> 8U ^ std::to_integer<std::uint32_t>(byte)) & 0xFFU;
    return (value << 8U ^ kTable16.at(index)) & 0xFFFFU;
}

/// Of the number of a frame or sample, by its first byte; 0 for none.
std::size_t numberBytes(std::uint32_t first) {
    constexpr std::size_t kMost = 7;
    if (first < 0x80) {
        return 1;
    }
    std::size_t count = 0;
    for (std::uint32_t bit = 0x80; (first & bit) != 0 && bit > 0; bit >>= 1U) {
        ++count;
    }
    return count >= 2 && count <= kMost ? count : 0;
}

/// Whether the head of a frame begins there.
bool isFrameHead(Bytes bytes) {
    if (bytes.size() < kNumberAt + 1 || byteAt(bytes, 0) != 0xFF ||
        (byteAt(bytes, 1) & 0xFEU) != 0xF8 || byteAt(bytes, 2) >> 4U == 0 ||
        (byteAt(bytes, 2) & 0xFU) == 0xF || byteAt(bytes, 3) >> 4U > 0xA ||
        (byteAt(bytes, 3) & 1U) != 0) {
        return false;
    }
    std::size_t length = kNumberAt + numberBytes(byteAt(bytes, kNumberAt));
    const std::uint32_t samples = byteAt(bytes, 2) >> 4U;
    const std::uint32_t hertz = byteAt(bytes, 2) & 0xFU;
    length += samples == 6 ? 1 : samples == 7 ? 2 : 0;
    length += hertz == 12 ? 1 : hertz == 13 || hertz == 14 ? 2 : 0;
    return length > kNumberAt && bytes.size() > length &&
           checksum8(bytes.first(length)) == byteAt(bytes, length);
}

std::size_t firstHead(Bytes bytes, std::size_t from) {
    while (from < bytes.size() && !isFrameHead(bytes.subspan(from))) {
        ++from;
    }
    return from;
}

/// Where the frame at the beginning ends; 0 where that cannot be told.
std::size_t frameEnd(Bytes bytes, bool last) {
    std::uint32_t sum = 0;
    std::size_t summed = 0;
    for (std::size_t end = kShortestFrame; end <= bytes.size(); ++end) {
        const bool closes = end == bytes.size()
                                ? last
                                : byteAt(bytes, end) == 0xFF && isFrameHead(bytes.subspan(end));
        if (!closes) {
            continue;
        }
        for (; summed < end - kChecksumBytes; ++summed) {
            sum = addTo16(sum, bytes[summed]);
        }
        if (sum == (byteAt(bytes, end - 2) << 8U | byteAt(bytes, end - 1))) {
            return end;
        }
    }
    return 0;
}

char blockByte(std::size_t length, unsigned shift) {
    return static_cast<char>(length >> shift & 0xFFU);
}

} // namespace

bool FlacUnits::begins(Bytes bytes) {
    return bytes.size() > kMark.size() &&
           std::equal(kMark.begin(), kMark.end(), bytes.begin(), [](char sign, std::byte byte) {
               return std::byte(static_cast<unsigned char>(sign)) == byte;
           });
}

UnitStep FlacUnits::next(Bytes bytes, bool last) {
    if (at_ == At::frames && begins(bytes)) {
        at_ = At::mark; // another stream behind this one
    }
    if (at_ == At::mark) {
        if (!begins(bytes)) {
            return {};
        }
        at_ = At::blocks;
        return {.length = kMark.size(), .head = true, .fresh = true};
    }
    if (at_ == At::frames) {
        return nextFrame(bytes, last);
    }
    if (bytes.size() < kBlockHead) {
        return {};
    }
    const std::size_t length =
        kBlockHead + (byteAt(bytes, 1) << 16U | byteAt(bytes, 2) << 8U | byteAt(bytes, 3));
    if (length > kMostBlock) {
        at_ = At::frames; // a picture that large; frames are found behind it
        return nextFrame(bytes, last);
    }
    if (bytes.size() < length) {
        return {};
    }
    at_ = (byteAt(bytes, 0) & kLastBlock) != 0 ? At::frames : At::blocks;
    return {.length = length, .head = true};
}

UnitStep FlacUnits::nextFrame(Bytes bytes, bool last) const {
    std::size_t place = firstHead(bytes, 0);
    int tries = 0;
    while (place < bytes.size()) {
        const Bytes rest = bytes.subspan(place);
        if (const std::size_t end = frameEnd(rest, last); end > 0) {
            return {.skip = place, .length = end};
        }
        if (!last && rest.size() <= kMostFrame) {
            break;
        }
        // That one is damaged, or none. Who sends nothing but such ones is not looked through.
        place = ++tries < kMostTries ? firstHead(bytes, place + 1) : bytes.size();
    }
    if (last) {
        return {.skip = bytes.size()};
    }
    // The head of a frame may have come in half.
    const std::size_t kept = std::min(bytes.size(), kLongestHead);
    return {.skip = std::min(place, bytes.size() - kept)};
}

std::string FlacUnits::headOf(std::string head, const std::string& artist,
                              const std::string& title) const {
    const std::size_t form = kMark.size() + kBlockHead;
    if (head.size() < form + kFormBytes) {
        return head;
    }
    std::string made = head.substr(0, form + kFormBytes);
    made[kMark.size()] = 0; // the first block, and not the last one
    auto byte = static_cast<unsigned char>(made[form + kCountAt]);
    made[form + kCountAt] = static_cast<char>(byte & kNoCount);
    std::fill(made.begin() + static_cast<std::ptrdiff_t>(form + kCountAt) + 1, made.end(), '\0');
    const std::string comments = commentsOf(artist, title);
    made += static_cast<char>(kLastBlock | kComments);
    made += {blockByte(comments.size(), 16), blockByte(comments.size(), 8),
             blockByte(comments.size(), 0)};
    return made + comments;
}

} // namespace tovik::radio
