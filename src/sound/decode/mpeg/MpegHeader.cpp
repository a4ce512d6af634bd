// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/mpeg/MpegHeader.h"

#include "sound/decode/LeadingTags.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tovik::sound::mpeg {
namespace {

constexpr std::size_t kHeadBytes = 4;
/// So many frames in a row are no accident.
constexpr int kSureFrames = 4;
/// In a file that ends behind them, so many do.
constexpr int kSureShortFrames = 2;
/// Holds some padding and the frames looked at, of any bit rate.
constexpr std::size_t kLookedAtBytes = 1 << 16;
constexpr std::size_t kLongestFreeFrameBytes = 1 << 12;

// Bit rates in kbit/s by index, which is 1 to 14 (ISO/IEC 11172-3, 2.4.2.3; 13818-3, 2.4.2.3).
using BitRates = std::array<std::uint16_t, 14>;
constexpr BitRates kLayer1 = {32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448};
constexpr BitRates kLayer2 = {32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384};
constexpr BitRates kLayer3 = {32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
constexpr BitRates kLowLayer1 = {32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256};
constexpr BitRates kLowLayers = {8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160};

constexpr std::array<std::size_t, 3> kRates = {44'100, 48'000, 32'000};

constexpr std::array<std::string_view, 4> kTrailingTags = {"TAG", "APETAGEX", "LYRICSBEGIN", "ID3"};

struct Form {
    unsigned version; ///< 0: 2.5, 2: 2, 3: 1
    unsigned layer;   ///< 1 to 3
};

const BitRates& bitRates(const Form& form) {
    if (form.version == 3) {
        return form.layer == 1 ? kLayer1 : form.layer == 2 ? kLayer2 : kLayer3;
    }
    return form.layer == 1 ? kLowLayer1 : kLowLayers;
}

std::size_t sampleRate(const Form& form, unsigned index) {
    const std::size_t rate = kRates[index];
    return form.version == 3 ? rate : form.version == 2 ? rate / 2 : rate / 4;
}

std::size_t frameBytes(const Form& form, unsigned bitRateIndex, std::size_t rate, bool padded) {
    const std::size_t bitRate = std::size_t{1000} * bitRates(form)[bitRateIndex - 1];
    const std::size_t padding = padded ? 1 : 0;
    if (form.layer == 1) {
        return (12 * bitRate / rate + padding) * 4;
    }
    const bool half = form.layer == 3 && form.version != 3;
    return (half ? 72 : 144) * bitRate / rate + padding;
}

// In free format frames are as far apart as the heads of one kind are.
std::size_t freeFrameBytes(std::span<const std::byte> bytes, std::uint32_t kind) {
    const std::size_t last = std::min(bytes.size(), kLongestFreeFrameBytes);
    for (std::size_t n = kHeadBytes; n + kHeadBytes <= last; ++n) {
        const auto next = readHeader(bytes.subspan(n));
        if (next && next->kind == kind && next->frameBytes == 0) {
            return n;
        }
    }
    return 0;
}

// Free frames differ by their padding from the first one.
std::size_t padded(std::span<const std::byte> bytes, std::size_t size) {
    for (const std::size_t length : {size, size + 1, size - 1}) {
        if (size > 1 && length < bytes.size() && readHeader(bytes.subspan(length))) {
            return length;
        }
    }
    return size;
}

bool isTrailingTag(std::span<const std::byte> bytes) {
    return std::ranges::any_of(kTrailingTags, [bytes](std::string_view tag) {
        return bytes.size() >= tag.size() &&
               std::ranges::equal(std::as_bytes(std::span(tag)), bytes.first(tag.size()));
    });
}

// `whole`: the bytes reach to the end of the file.
bool isRowOfFrames(std::span<const std::byte> bytes, bool whole) {
    std::optional<MpegHeader> first;
    std::size_t freeBytes = 0;
    for (int frames = 0; frames < kSureFrames; ++frames) {
        const auto header = readHeader(bytes);
        if (!header || (first && header->kind != first->kind)) {
            return frames >= kSureShortFrames && whole && (bytes.empty() || isTrailingTag(bytes));
        }
        first = header;
        if (header->frameBytes == 0 && freeBytes == 0) {
            freeBytes = freeFrameBytes(bytes, header->kind);
        }
        const std::size_t size =
            header->frameBytes == 0 ? padded(bytes, freeBytes) : header->frameBytes;
        if (size == 0) {
            return false;
        }
        if (size > bytes.size()) {
            return whole && frames >= kSureShortFrames;
        }
        bytes = bytes.subspan(size);
    }
    return true;
}

} // namespace

std::optional<MpegHeader> readHeader(std::span<const std::byte> bytes) noexcept {
    if (bytes.size() < kHeadBytes) {
        return std::nullopt;
    }
    const auto at = [&bytes](std::size_t n) { return std::to_integer<unsigned>(bytes[n]); };
    const Form form = {at(1) >> 3U & 3U, 4 - (at(1) >> 1U & 3U)};
    const unsigned bitRateIndex = at(2) >> 4U;
    const unsigned rateIndex = at(2) >> 2U & 3U;
    const bool padded = (at(2) & 2U) != 0;
    if (at(0) != 0xFFU || (at(1) & 0xE0U) != 0xE0U || form.version == 1 || form.layer == 4 ||
        bitRateIndex == 15 || rateIndex == 3 || (at(3) & 3U) == 2) {
        return std::nullopt;
    }
    MpegHeader header;
    header.kind = (at(1) & 0x1EU) << 2U | rateIndex;
    if (bitRateIndex != 0) {
        header.frameBytes = frameBytes(form, bitRateIndex, sampleRate(form, rateIndex), padded);
    }
    return header;
}

bool looksLikeMpeg(const ByteStore& store) {
    const std::int64_t start = leadingTagBytes(store);
    const std::vector<std::byte> bytes = readBytes(store, start, kLookedAtBytes);
    // Some taggers leave zeros behind their tag.
    const auto sound =
        start == 0 ? bytes.begin()
                   : std::ranges::find_if(bytes, [](std::byte b) { return b != std::byte{0}; });
    return isRowOfFrames({sound, bytes.end()}, bytes.size() < kLookedAtBytes);
}

} // namespace tovik::sound::mpeg
