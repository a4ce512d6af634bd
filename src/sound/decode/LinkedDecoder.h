// SPDX-License-Identifier: GPL-3.0-or-later
// Streams of several rates that follow each other in one file, as one track: each has a decoder of
// its own, and all are brought to the rate of the engine. Used under the lock of its source.
#pragma once

#include "sound/decode/Decoder.h"
#include "sound/decode/Resampler.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace tovik::sound {

class LinkedDecoder : public Decoder {
public:
    /// One stream after the other. Null without any, or when memory is short.
    [[nodiscard]] static std::unique_ptr<LinkedDecoder>
    create(std::vector<std::unique_ptr<Decoder>> decoders);

    [[nodiscard]] int sampleRate() const noexcept override { return Resampler::kOutputRate; }

    [[nodiscard]] int channels() const noexcept override { return 2; }

    [[nodiscard]] std::int64_t lengthFrames() const noexcept override { return length_; }

    [[nodiscard]] std::unique_ptr<PacketScan> lengthScan() override { return nullptr; }

    std::size_t read(std::span<float> interleaved) override;
    std::int64_t seek(std::int64_t frame) override;

private:
    struct Link {
        std::unique_ptr<Decoder> decoder;
        std::unique_ptr<Resampler> resampler; ///< null where the rate is the engine's
        std::int64_t begin = 0;               ///< in the whole
        std::int64_t frames = 0;              ///< at the engine's rate
    };

    LinkedDecoder() = default;

    [[nodiscard]] bool add(std::unique_ptr<Decoder> decoder);
    void enter(std::size_t index, std::int64_t frame);
    [[nodiscard]] bool advance();
    void fill(Link& link);
    void convert(Link& link, std::span<const float> decoded);

    std::vector<Link> links_;
    std::int64_t length_ = 0;
    std::size_t current_ = 0;
    std::int64_t left_ = 0; ///< frames that the current link still owes
    std::vector<float> decoded_;
    std::vector<float> ready_; ///< stereo at the engine's rate
    std::size_t taken_ = 0;    ///< samples of it already given
};

} // namespace tovik::sound
