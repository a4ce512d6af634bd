// SPDX-License-Identifier: GPL-3.0-or-later
// Demuxer and codec together: the decoded frames of a file, one after the other. One thread at a
// time.
#pragma once

#include "sound/decode/ffmpeg/Demuxer.h"

namespace tovik::sound::ffmpeg {

/// The time behind the last sample of `packet` that is sound and not padding, in units of the
/// stream whose samples have `rate` Hz; AV_NOPTS_VALUE when the packet does not tell.
[[nodiscard]] std::int64_t packetEnd(const AVPacket& packet, AVRational timeBase,
                                     int rate) noexcept;

class FrameSource {
public:
    /// Null when there is no codec for the stream.
    [[nodiscard]] static std::unique_ptr<FrameSource> open(std::unique_ptr<Demuxer> demuxer);

    /// The next frame, valid until the next call; null at the end, again and again.
    [[nodiscard]] const AVFrame* next() noexcept;

    /// Goes on at or before `pts`; packets that end before `decodeFrom` are read but not decoded.
    [[nodiscard]] bool seek(std::int64_t pts, std::int64_t decodeFrom) noexcept;

    [[nodiscard]] const AVStream& stream() const noexcept { return demuxer_->stream(); }

    /// Where in the file the data of the first packet stand; -1 when unknown.
    [[nodiscard]] std::int64_t firstByte() const noexcept { return firstByte_; }

    /// Where the data of the packet decoded last stand; -1 when unknown.
    [[nodiscard]] std::int64_t lastByte() const noexcept { return lastByte_; }

    /// See Demuxer.
    [[nodiscard]] std::string takeTitle() { return demuxer_->takeTitle(); }

    /// Time stamp of the first packet of the file.
    [[nodiscard]] std::int64_t firstPts() const noexcept { return firstPts_; }

    /// `packetEnd` of the last packet since the start or the last seek.
    [[nodiscard]] std::int64_t lastPacketEnd() const noexcept { return lastPacketEnd_; }

    /// True when packets that gave no frame came since the last frame.
    [[nodiscard]] bool lostPackets() const noexcept { return lost_; }

private:
    FrameSource(std::unique_ptr<Demuxer> demuxer, CodecPtr codec);
    void feed() noexcept;
    void note(const AVPacket& packet) noexcept;
    [[nodiscard]] bool isBeforeStart(const AVPacket& packet) const noexcept;

    std::unique_ptr<Demuxer> demuxer_;
    CodecPtr codec_;
    PacketPtr packet_;
    FramePtr frame_;
    std::int64_t firstByte_ = -1;
    std::int64_t lastByte_ = -1;
    std::int64_t firstPts_ = AV_NOPTS_VALUE;
    std::int64_t decodeFrom_ = AV_NOPTS_VALUE;
    std::int64_t lastPacketEnd_ = AV_NOPTS_VALUE;
    bool anyPacket_ = false;
    bool lost_ = false;
    bool draining_ = false;
    bool ended_ = false;
};

} // namespace tovik::sound::ffmpeg
