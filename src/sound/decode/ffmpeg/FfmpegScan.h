// SPDX-License-Identifier: GPL-3.0-or-later
// Finds where the sound of a file ends by reading its packets without decoding them. One thread at
// a time.
#pragma once

#include "sound/decode/ffmpeg/Demuxer.h"
#include "sound/decode/ffmpeg/TimeLine.h"
#include "sound/decode/PacketScan.h"

namespace tovik::sound::ffmpeg {

class FfmpegScan : public PacketScan {
public:
    /// Reads from frame `from` on, which may be near the estimated end where the packets carry
    /// absolute time stamps. `estimate` is the answer when there is no packet to be found.
    FfmpegScan(std::shared_ptr<const ByteStore> store, const AVInputFormat& format,
               const TimeLine& line, std::int64_t from, std::int64_t estimate) noexcept;

    [[nodiscard]] bool run(std::chrono::milliseconds slice) override;

    [[nodiscard]] std::int64_t lengthFrames() const noexcept override { return length_; }

private:
    [[nodiscard]] bool open();
    [[nodiscard]] bool finish();

    std::shared_ptr<const ByteStore> store_;
    const AVInputFormat& format_;
    TimeLine line_;
    std::int64_t from_;
    std::int64_t length_;
    std::int64_t end_ = -1;
    std::unique_ptr<Demuxer> demuxer_;
    PacketPtr packet_;
    bool done_ = false;
};

} // namespace tovik::sound::ffmpeg
