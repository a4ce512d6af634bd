// SPDX-License-Identifier: GPL-3.0-or-later
// The decoder of MPEG audio, layers I to III, free format among them, by libmpg123: exact to the
// frame, and without the encoder's delay and padding where the file tells them. Behind a seek the
// last bit of a sample may differ from a play-through: the library's filter bank sums in an order
// that depends on how many blocks it has seen. One thread at a time.
#pragma once

#include "sound/decode/Decoder.h"
#include "sound/decode/mpeg/MpegHandle.h"

namespace tovik::sound::mpeg {

/// Any thread. "Mine" are streams that are frames of MPEG audio from their beginning on, or behind
/// a leading tag.
[[nodiscard]] OpenResult openMpeg(const std::shared_ptr<const ByteStore>& store);

/// The same for bytes that are known to be such a stream.
[[nodiscard]] OpenResult openMpegStream(std::shared_ptr<const ByteStore> store);

class MpegDecoder : public Decoder {
public:
    MpegDecoder(std::shared_ptr<const ByteStore> store, std::unique_ptr<MpegHandle> handle);

    [[nodiscard]] int sampleRate() const noexcept override { return handle_->sampleRate(); }

    [[nodiscard]] int channels() const noexcept override { return handle_->channels(); }

    [[nodiscard]] std::int64_t lengthFrames() const noexcept override { return length_; }

    [[nodiscard]] std::unique_ptr<PacketScan> lengthScan() override;
    std::size_t read(std::span<float> interleaved) override;
    std::int64_t seek(std::int64_t frame) override;

private:
    std::size_t decode(std::span<float> interleaved);
    [[nodiscard]] bool lookAhead();
    [[nodiscard]] std::int64_t findEnd() const;

    std::shared_ptr<const ByteStore> store_;
    std::unique_ptr<MpegHandle> handle_;
    std::int64_t length_;
    std::vector<float> ahead_;   ///< decoded behind a seek, to see that there is something
    std::size_t aheadTaken_ = 0; ///< samples of it already given
    bool ended_ = false;
};

} // namespace tovik::sound::mpeg
