// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/riff/BlockCodec.h"

#include <array>
#include <bit>
#include <cstdint>

namespace tovik::sound::riff {
namespace {

using Bytes = std::span<const std::byte>;

// The bytes of a sample as a number, the highest one first in `order`.
template <std::size_t size, bool big>
std::uint64_t gather(Bytes bytes) noexcept {
    std::uint64_t value = 0;
    for (std::size_t n = 0; n < size; ++n) {
        value = value << 8U | std::to_integer<std::uint64_t>(bytes[big ? n : size - 1 - n]);
    }
    return value;
}

template <std::size_t size, bool big>
float wholeNumber(Bytes bytes) noexcept {
    constexpr float kScale = 1.0F / 2147483648.0F;
    constexpr unsigned kShift = 32U - 8U * size;
    const auto bits = static_cast<std::uint32_t>(gather<size, big>(bytes)) << kShift;
    return static_cast<float>(static_cast<std::int32_t>(bits)) * kScale;
}

float unsignedByte(Bytes bytes) noexcept {
    return static_cast<float>(std::to_integer<int>(bytes[0]) - 128) / 128.0F;
}

template <bool big>
float singleFloat(Bytes bytes) noexcept {
    return std::bit_cast<float>(static_cast<std::uint32_t>(gather<4, big>(bytes)));
}

template <bool big>
float doubleFloat(Bytes bytes) noexcept {
    return static_cast<float>(std::bit_cast<double>(gather<8, big>(bytes)));
}

template <std::size_t size, float (*read)(Bytes) noexcept>
void decodeAll(Bytes bytes, std::span<float> out) noexcept {
    for (std::size_t n = 0; n < out.size(); ++n) {
        out[n] = read(bytes.subspan(n * size, size));
    }
}

struct Row {
    PcmForm form;
    void (*decode)(Bytes, std::span<float>) noexcept;
};

constexpr std::array<Row, 13> kRows = {{
    {{1, false, true, false}, &decodeAll<1, &unsignedByte>},
    {{1, false, false, true}, &decodeAll<1, &wholeNumber<1, true>>},
    {{1, false, false, false}, &decodeAll<1, &wholeNumber<1, false>>},
    {{2, false, false, false}, &decodeAll<2, &wholeNumber<2, false>>},
    {{3, false, false, false}, &decodeAll<3, &wholeNumber<3, false>>},
    {{4, false, false, false}, &decodeAll<4, &wholeNumber<4, false>>},
    {{2, false, false, true}, &decodeAll<2, &wholeNumber<2, true>>},
    {{3, false, false, true}, &decodeAll<3, &wholeNumber<3, true>>},
    {{4, false, false, true}, &decodeAll<4, &wholeNumber<4, true>>},
    {{4, true, false, false}, &decodeAll<4, &singleFloat<false>>},
    {{8, true, false, false}, &decodeAll<8, &doubleFloat<false>>},
    {{4, true, false, true}, &decodeAll<4, &singleFloat<true>>},
    {{8, true, false, true}, &decodeAll<8, &doubleFloat<true>>},
}};

class PcmCodec : public BlockCodec {
public:
    PcmCodec(const Row& row, std::size_t channels) noexcept : row_(row), channels_(channels) {}

    [[nodiscard]] std::size_t blockBytes() const noexcept override {
        return kFramesAtOnce * frameBytes();
    }

    [[nodiscard]] std::size_t blockFrames() const noexcept override { return kFramesAtOnce; }

    [[nodiscard]] std::size_t framesIn(std::size_t bytes) const noexcept override {
        return bytes / frameBytes();
    }

    void decode(Bytes block, std::span<float> out) const noexcept override {
        row_.decode(block, out);
    }

private:
    // Frames stand alone; so many are decoded at once.
    static constexpr std::size_t kFramesAtOnce = 1024;

    [[nodiscard]] std::size_t frameBytes() const noexcept { return row_.form.bytes * channels_; }

    const Row& row_;
    std::size_t channels_;
};

bool same(const PcmForm& a, const PcmForm& b) noexcept {
    return a.bytes == b.bytes && a.isFloat == b.isFloat && a.isUnsigned == b.isUnsigned &&
           a.bigEndian == b.bigEndian;
}

} // namespace

std::unique_ptr<BlockCodec> makePcmCodec(const PcmForm& form, std::size_t channels) {
    for (const Row& row : kRows) {
        if (channels > 0 && same(row.form, form)) {
            return std::make_unique<PcmCodec>(row, channels);
        }
    }
    return nullptr;
}

} // namespace tovik::sound::riff
