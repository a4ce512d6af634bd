// SPDX-License-Identifier: GPL-3.0-or-later
// Samples that lie in a file as blocks of one size, each of which is decoded for itself: plain
// numbers, where a block is a frame, and the two kinds of ADPCM. Any thread.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace tovik::sound::riff {

/// The form of the numbers of a plain file.
struct PcmForm {
    std::size_t bytes = 0; ///< of one sample: 1 to 4, for floats 4 or 8
    bool isFloat = false;
    bool isUnsigned = false;
    bool bigEndian = false;
};

class BlockCodec {
public:
    virtual ~BlockCodec() = default;

    [[nodiscard]] virtual std::size_t blockBytes() const noexcept = 0;

    /// Frames in a whole block.
    [[nodiscard]] virtual std::size_t blockFrames() const noexcept = 0;

    /// Frames in a last block of which there are only so many bytes.
    [[nodiscard]] virtual std::size_t framesIn(std::size_t bytes) const noexcept = 0;

    /// Decodes a block, or the beginning of the last one, into `out`: the frames of `framesIn`,
    /// interleaved.
    virtual void decode(std::span<const std::byte> block, std::span<float> out) const noexcept = 0;
};

/// Null for a form that there is no such file of.
[[nodiscard]] std::unique_ptr<BlockCodec> makePcmCodec(const PcmForm& form, std::size_t channels);

/// IMA ADPCM in blocks of `blockBytes`; null when a block holds no samples.
[[nodiscard]] std::unique_ptr<BlockCodec> makeImaCodec(std::size_t blockBytes,
                                                       std::size_t channels);

struct MsCoefficients {
    int first = 0;
    int second = 0;
};

/// Microsoft ADPCM with the coefficients that the file lists; null without any.
[[nodiscard]] std::unique_ptr<BlockCodec> makeMsCodec(std::size_t blockBytes, std::size_t channels,
                                                      std::vector<MsCoefficients> coefficients);

} // namespace tovik::sound::riff
