// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/FrameUnits.h"

#include <array>

namespace tovik::radio {

namespace {

constexpr std::size_t kFollowing = 2; ///< frames that confirm the first one

constexpr std::uint32_t kNoRate = 0;
constexpr int kLayers = 3;

using Rates = std::array<std::uint16_t, 15>; ///< kbit/s by index; 0 is free format

constexpr std::array<Rates, kLayers> kRates1{{
    {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448},
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384},
    {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320},
}};
constexpr Rates kRates2Layer1{0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256};
constexpr Rates kRates2{0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160};

constexpr std::array<std::uint32_t, 3> kHertz{44100, 48000, 32000};

/// Of the first four bytes: what does not change from frame to frame.
constexpr std::uint32_t kMpegKind = 0xFFFE0C00;
constexpr std::uint32_t kAdtsKind = 0xFFFEFDC0;
constexpr std::uint32_t kAdtsSync = 0xFFF00000;
constexpr std::uint32_t kAdtsSyncMask = 0xFFF60000;
constexpr std::uint32_t kMpegSync = 0xFFE00000;

constexpr std::size_t kAdtsHeadBytes = 7;
constexpr std::uint32_t kLastAdtsRate = 12;

std::uint32_t byteAt(Bytes bytes, std::size_t at) {
    return std::to_integer<std::uint32_t>(bytes[at]);
}

/// ID, layer and sampling rate as ADTS has them.
std::optional<FrameHead> adtsHead(Bytes bytes, std::uint32_t word) {
    const std::uint32_t rate = word >> 10U & 0xFU;
    const std::size_t length =
        (word & 0x3U) << 11U | byteAt(bytes, 4) << 3U | byteAt(bytes, 5) >> 5U;
    if (rate > kLastAdtsRate || length <= kAdtsHeadBytes) {
        return std::nullopt;
    }
    return FrameHead{length, word & kAdtsKind, 0};
}

std::size_t mpegLength(std::uint32_t version, int layer, std::uint32_t word) {
    const bool first = version == 3;
    const std::uint32_t index = word >> 12U & 0xFU;
    const auto row = static_cast<std::size_t>(layer) - 1;
    const Rates& rates = first ? kRates1.at(row) : layer == 1 ? kRates2Layer1 : kRates2;
    const std::uint32_t bits = rates.at(index) * 1000U;
    const std::uint32_t halvings = first ? 0 : version == 2 ? 1 : 2;
    const std::uint32_t hertz = kHertz.at(word >> 10U & 0x3U) >> halvings;
    const std::uint32_t padding = word >> 9U & 1U;
    if (layer == 1) {
        return (std::size_t{12} * bits / hertz + padding) * 4;
    }
    const std::uint32_t slots = layer == 3 && !first ? 72 : 144;
    return std::size_t{slots} * bits / hertz + padding;
}

std::optional<FrameHead> mpegHead(std::uint32_t word) {
    const std::uint32_t version = word >> 19U & 0x3U;
    const int layer = 4 - static_cast<int>(word >> 17U & 0x3U);
    const std::uint32_t rate = word >> 12U & 0xFU;
    if (version == 1 || layer > kLayers || rate == kNoRate || rate == 0xF ||
        (word >> 10U & 0x3U) == 0x3U) {
        return std::nullopt;
    }
    return FrameHead{mpegLength(version, layer, word), word & kMpegKind, layer};
}

} // namespace

std::optional<FrameHead> frameHead(Bytes bytes) noexcept {
    if (bytes.size() < kFrameHeadBytes || bytes.front() != std::byte{0xFF}) {
        return std::nullopt;
    }
    const std::uint32_t word = byteAt(bytes, 0) << 24U | byteAt(bytes, 1) << 16U |
                               byteAt(bytes, 2) << 8U | byteAt(bytes, 3);
    if ((word & kAdtsSyncMask) == kAdtsSync) {
        return adtsHead(bytes, word);
    }
    return (word & kMpegSync) == kMpegSync ? mpegHead(word) : std::nullopt;
}

UnitStep FrameUnits::next(Bytes bytes, bool last) {
    if (lost_) {
        return search(bytes, last);
    }
    const auto head = frameHead(bytes);
    if (!head && bytes.size() < kFrameHeadBytes) {
        return {};
    }
    if (!head || head->kind != locked_->kind) {
        lost_ = true;
        return search(bytes, last);
    }
    if (bytes.size() < head->length + kFrameHeadBytes) {
        const bool whole = last && bytes.size() >= head->length;
        return {.length = whole ? head->length : 0};
    }
    const auto following = frameHead(bytes.subspan(head->length));
    if (!following || following->kind != head->kind) {
        lost_ = true;
        return search(bytes, last);
    }
    return {.length = head->length};
}

/// Finds the first place where frames follow each other.
UnitStep FrameUnits::search(Bytes bytes, bool last) {
    std::size_t place = 0;
    for (; place + kFrameHeadBytes <= bytes.size(); ++place) {
        const auto head = frameHead(bytes.subspan(place));
        std::size_t at = place;
        bool follows = head.has_value();
        auto frame = head;
        for (std::size_t count = 0; follows && count < kFollowing; ++count) {
            at += frame->length;
            if (at + kFrameHeadBytes > bytes.size()) {
                return {.skip = last ? bytes.size() : place};
            }
            frame = frameHead(bytes.subspan(at));
            follows = frame && frame->kind == head->kind;
        }
        if (follows) {
            locked_ = head;
            lost_ = false;
            return {.skip = place, .length = head->length};
        }
    }
    return {.skip = last ? bytes.size() : place};
}

std::string_view FrameUnits::ending() const {
    static constexpr std::array<std::string_view, kLayers + 1> kEndings{".aac", ".mp1", ".mp2",
                                                                        ".mp3"};
    return kEndings.at(locked_ ? static_cast<std::size_t>(locked_->layer) : 0);
}

} // namespace tovik::radio
