// SPDX-License-Identifier: GPL-3.0-or-later
// The decoder of Ogg Vorbis by libvorbisfile: exact to the frame, through all the links of a
// chained file one after the other. Positions and the length are those of the whole. One thread at
// a time.
#pragma once

#include "sound/decode/Decoder.h"
#include "sound/decode/Downmix.h"
#include "sound/decode/PlacedBlocks.h"
#include "sound/decode/StoreCursor.h"
#include "sound/decode/vorbis/VorbisFile.h"

namespace tovik::sound::vorbis {

/// True for Ogg files whose first stream is Vorbis.
[[nodiscard]] bool isVorbis(const ByteStore& store);

/// Any thread. "Mine" are Ogg files whose first stream is Vorbis.
[[nodiscard]] OpenResult openVorbis(const std::shared_ptr<const ByteStore>& store);

class VorbisDecoder : public Decoder {
public:
    explicit VorbisDecoder(std::unique_ptr<VorbisFile> file);

    [[nodiscard]] int sampleRate() const noexcept override { return rate_; }

    [[nodiscard]] int channels() const noexcept override { return channels_; }

    [[nodiscard]] std::int64_t lengthFrames() const noexcept override { return length_; }

    [[nodiscard]] std::unique_ptr<PacketScan> lengthScan() override { return nullptr; }

    std::size_t read(std::span<float> interleaved) override;
    std::int64_t seek(std::int64_t frame) override;

private:
    [[nodiscard]] bool advance();
    [[nodiscard]] bool goTo(std::int64_t frame);
    void place(float** planes, std::size_t frames, int link);

    std::unique_ptr<VorbisFile> file_;
    int rate_;
    int channels_;
    std::int64_t length_;
    PlacedBlocks blocks_;
    std::vector<float> all_; ///< a block of more than two channels
    bool ended_ = false;
};

} // namespace tovik::sound::vorbis
