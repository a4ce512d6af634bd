// SPDX-License-Identifier: GPL-3.0-or-later
// The decoder of files that hold blocks of samples, which `BlockCodec` knows: exact to the frame,
// and as long as what the file really holds. One thread at a time.
#pragma once

#include "sound/decode/ByteStore.h"
#include "sound/decode/Decoder.h"
#include "sound/decode/Downmix.h"
#include "sound/decode/riff/BlockCodec.h"

namespace tovik::sound::riff {

/// Where the blocks are and what they mean.
struct BlockPlace {
    std::shared_ptr<const ByteStore> store; ///< the blocks alone
    std::unique_ptr<BlockCodec> codec;
    std::vector<Speaker> speakers; ///< one for each channel
    int rate = 0;
    std::int64_t mostFrames = INT64_MAX; ///< what the head tells, where that is less
};

class BlockDecoder : public Decoder {
public:
    explicit BlockDecoder(BlockPlace place);

    [[nodiscard]] int sampleRate() const noexcept override { return place_.rate; }

    [[nodiscard]] int channels() const noexcept override { return mono_ ? 1 : 2; }

    [[nodiscard]] std::int64_t lengthFrames() const noexcept override { return length_; }

    [[nodiscard]] std::unique_ptr<PacketScan> lengthScan() override { return nullptr; }

    std::size_t read(std::span<float> interleaved) override;
    std::int64_t seek(std::int64_t frame) override;

private:
    [[nodiscard]] std::int64_t measureLength() const;
    [[nodiscard]] std::span<const float> fromHere();
    void decodeBlock(std::int64_t index);

    BlockPlace place_;
    Downmix downmix_;
    bool mono_;
    std::int64_t length_;
    std::int64_t position_ = 0;
    std::int64_t decodedBlock_ = -1;
    std::vector<float> all_;     ///< the decoded block with all its channels
    std::vector<float> samples_; ///< the same with one or two
};

} // namespace tovik::sound::riff
