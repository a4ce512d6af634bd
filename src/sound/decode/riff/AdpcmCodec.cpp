// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/riff/BlockCodec.h"

#include "sound/decode/riff/Fields.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tovik::sound::riff {
namespace {

constexpr float kScale = 1.0F / 32768.0F;

int to16Bits(int value) noexcept {
    return std::clamp(value, -32768, 32767);
}

float toFloat(int value) noexcept {
    return static_cast<float>(value) * kScale;
}

// IMA Digital Audio Focus Group, "Recommended Practices for Enhancing Digital Audio Compatibility
// in Multimedia Systems" (1992): the steps grow by a tenth.
constexpr std::array<int, 89> kSteps = {
    7,     8,     9,     10,    11,    12,    13,    14,    16,    17,    19,   21,    23,
    25,    28,    31,    34,    37,    41,    45,    50,    55,    60,    66,   73,    80,
    88,    97,    107,   118,   130,   143,   157,   173,   190,   209,   230,  253,   279,
    307,   337,   371,   408,   449,   494,   544,   598,   658,   724,   796,  876,   963,
    1060,  1166,  1282,  1411,  1552,  1707,  1878,  2066,  2272,  2499,  2749, 3024,  3327,
    3660,  4026,  4428,  4871,  5358,  5894,  6484,  7132,  7845,  8630,  9493, 10442, 11487,
    12635, 13899, 15289, 16818, 18500, 20350, 22385, 24623, 27086, 29794, 32767};
constexpr std::array<int, 8> kStepChanges = {-1, -1, -1, -1, 2, 4, 6, 8};

class ImaChannel {
public:
    ImaChannel(int sample, int index) noexcept
        : sample_(sample), index_(std::clamp(index, 0, kLastIndex)) {}

    int next(unsigned nibble) noexcept {
        const int step = kSteps[static_cast<std::size_t>(index_)];
        int change = step >> 3;
        change += (nibble & 4U) != 0 ? step : 0;
        change += (nibble & 2U) != 0 ? step >> 1 : 0;
        change += (nibble & 1U) != 0 ? step >> 2 : 0;
        sample_ = to16Bits((nibble & 8U) != 0 ? sample_ - change : sample_ + change);
        index_ = std::clamp(index_ + kStepChanges[nibble & 7U], 0, kLastIndex);
        return sample_;
    }

private:
    static constexpr int kLastIndex = static_cast<int>(kSteps.size()) - 1;

    int sample_;
    int index_;
};

// Each channel's head is its first sample, its step and a byte of padding; then come words of
// eight nibbles, the channels in turn, the first nibble lowest.
class ImaCodec : public BlockCodec {
public:
    ImaCodec(std::size_t blockBytes, std::size_t channels) noexcept
        : blockBytes_(blockBytes), channels_(channels) {}

    [[nodiscard]] std::size_t blockBytes() const noexcept override { return blockBytes_; }

    [[nodiscard]] std::size_t blockFrames() const noexcept override {
        return framesIn(blockBytes_);
    }

    [[nodiscard]] std::size_t framesIn(std::size_t bytes) const noexcept override {
        const std::size_t heads = kWordBytes * channels_;
        return bytes < heads ? 0 : 1 + (bytes - heads) / heads * kNibbles;
    }

    void decode(std::span<const std::byte> block, std::span<float> out) const noexcept override {
        const Fields fields(block);
        const std::size_t frames = out.size() / channels_;
        for (std::size_t c = 0; frames > 0 && c < channels_; ++c) {
            const std::size_t head = c * kWordBytes;
            const int first = fields.signedWord(head);
            ImaChannel channel(first, fields.byte(head + 2));
            out[c] = toFloat(first);
            for (std::size_t frame = 1; frame < frames; ++frame) {
                const std::size_t word = 1 + (frame - 1) / kNibbles;
                const std::size_t nibble = (frame - 1) % kNibbles;
                const std::size_t at = (word * channels_ + c) * kWordBytes + nibble / 2;
                const unsigned both = fields.byte(at);
                const unsigned one = nibble % 2 == 0 ? both & 0xFU : both >> 4U;
                out[frame * channels_ + c] = toFloat(channel.next(one));
            }
        }
    }

private:
    static constexpr std::size_t kWordBytes = 4;
    static constexpr std::size_t kNibbles = 8;

    std::size_t blockBytes_;
    std::size_t channels_;
};

// Microsoft, "New Multimedia Data Types and Data Techniques" (1994), chapter on MS ADPCM.
constexpr std::array<int, 16> kAdaption = {230, 230, 230, 230, 307, 409, 512, 614,
                                           768, 614, 512, 409, 307, 230, 230, 230};
constexpr int kSmallestDelta = 16;
constexpr int kLargestDelta = 1 << 24; // no sound needs it, and nothing overflows

class MsChannel {
public:
    MsChannel(MsCoefficients coefficients, int delta, int last, int beforeLast) noexcept
        : coefficients_(coefficients), delta_(delta), last_(last), beforeLast_(beforeLast) {}

    int next(unsigned nibble) noexcept {
        // Two products may just exceed 32 bits.
        const std::int64_t sum = std::int64_t{last_} * coefficients_.first +
                                 std::int64_t{beforeLast_} * coefficients_.second;
        const auto predicted = static_cast<int>(sum / 256);
        const int error = static_cast<int>(nibble) - (nibble >= 8 ? 16 : 0);
        const int sample = to16Bits(predicted + error * delta_);
        const std::int64_t delta = std::int64_t{kAdaption[nibble]} * delta_ / 256;
        delta_ = static_cast<int>(std::clamp<std::int64_t>(delta, kSmallestDelta, kLargestDelta));
        beforeLast_ = last_;
        last_ = sample;
        return sample;
    }

private:
    MsCoefficients coefficients_;
    int delta_;
    int last_;
    int beforeLast_;
};

// The head has four fields, each for all channels in turn: coefficients, step, second sample, first
// sample. Then come the nibbles, the channels in turn, the first one highest.
class MsCodec : public BlockCodec {
public:
    MsCodec(std::size_t blockBytes, std::size_t channels,
            std::vector<MsCoefficients> coefficients) noexcept
        : blockBytes_(blockBytes), channels_(channels), coefficients_(std::move(coefficients)) {}

    [[nodiscard]] std::size_t blockBytes() const noexcept override { return blockBytes_; }

    [[nodiscard]] std::size_t blockFrames() const noexcept override {
        return framesIn(blockBytes_);
    }

    [[nodiscard]] std::size_t framesIn(std::size_t bytes) const noexcept override {
        const std::size_t head = kHeadBytes * channels_;
        return bytes < head ? 0 : 2 + (bytes - head) * 2 / channels_;
    }

    void decode(std::span<const std::byte> block, std::span<float> out) const noexcept override {
        const Fields fields(block);
        const std::size_t frames = out.size() / channels_;
        for (std::size_t c = 0; frames > 1 && c < channels_; ++c) {
            const std::size_t set = std::min<std::size_t>(fields.byte(c), coefficients_.size() - 1);
            const int last = fields.signedWord(3 * channels_ + 2 * c);
            const int beforeLast = fields.signedWord(5 * channels_ + 2 * c);
            MsChannel channel(coefficients_[set], fields.signedWord(channels_ + 2 * c), last,
                              beforeLast);
            out[c] = toFloat(beforeLast);
            out[channels_ + c] = toFloat(last);
            for (std::size_t frame = 2; frame < frames; ++frame) {
                const std::size_t nibble = (frame - 2) * channels_ + c;
                const unsigned both = fields.byte(kHeadBytes * channels_ + nibble / 2);
                const unsigned one = nibble % 2 == 0 ? both >> 4U : both & 0xFU;
                out[frame * channels_ + c] = toFloat(channel.next(one));
            }
        }
    }

private:
    static constexpr std::size_t kHeadBytes = 7;

    std::size_t blockBytes_;
    std::size_t channels_;
    std::vector<MsCoefficients> coefficients_;
};

} // namespace

std::unique_ptr<BlockCodec> makeImaCodec(std::size_t blockBytes, std::size_t channels) {
    if (channels == 0) {
        return nullptr;
    }
    auto codec = std::make_unique<ImaCodec>(blockBytes, channels);
    return codec->blockFrames() > 0 ? std::move(codec) : nullptr;
}

std::unique_ptr<BlockCodec> makeMsCodec(std::size_t blockBytes, std::size_t channels,
                                        std::vector<MsCoefficients> coefficients) {
    if (channels == 0 || coefficients.empty()) {
        return nullptr;
    }
    auto codec = std::make_unique<MsCodec>(blockBytes, channels, std::move(coefficients));
    return codec->blockFrames() > 1 ? std::move(codec) : nullptr;
}

} // namespace tovik::sound::riff
