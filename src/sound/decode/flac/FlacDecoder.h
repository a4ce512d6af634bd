// SPDX-License-Identifier: GPL-3.0-or-later
// The decoder of FLAC, native or in Ogg, by libFLAC: bit for bit and exact to the frame. One thread
// at a time.
#pragma once

#include "sound/decode/Decoder.h"
#include "sound/decode/flac/FlacStream.h"
#include "sound/decode/PlacedBlocks.h"

namespace tovik::sound::flac {

/// True for files that begin as FLAC, native or in Ogg.
[[nodiscard]] bool isFlac(const ByteStore& store);

/// Any thread. "Mine" are files that begin as native FLAC, behind leading tags or not, and Ogg
/// files whose first stream is FLAC. Streams that follow each other in one Ogg file are one track.
[[nodiscard]] OpenResult openFlac(const std::shared_ptr<const ByteStore>& store);

class FlacDecoder : public Decoder {
public:
    /// `length` in frames; 0 when it is not known.
    FlacDecoder(std::shared_ptr<const ByteStore> store, bool inOgg,
                std::unique_ptr<FlacStream> stream, std::int64_t length);

    [[nodiscard]] int sampleRate() const noexcept override { return stream_->info().rate; }

    [[nodiscard]] int channels() const noexcept override { return channels_; }

    [[nodiscard]] std::int64_t lengthFrames() const noexcept override { return length_; }

    [[nodiscard]] std::unique_ptr<PacketScan> lengthScan() override;
    std::size_t read(std::span<float> interleaved) override;
    std::int64_t seek(std::int64_t frame) override;

private:
    void placeFrom(std::int64_t frame);
    [[nodiscard]] std::int64_t runTo(std::int64_t frame);

    std::shared_ptr<const ByteStore> store_;
    bool inOgg_;
    std::int64_t length_;
    std::unique_ptr<FlacStream> stream_;
    int channels_;
    PlacedBlocks blocks_;
};

} // namespace tovik::sound::flac
