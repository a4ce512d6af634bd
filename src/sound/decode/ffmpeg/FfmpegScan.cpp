// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/ffmpeg/FfmpegScan.h"

#include "sound/decode/ffmpeg/FrameSource.h"

#include <algorithm>

namespace tovik::sound::ffmpeg {
namespace {

constexpr int kPacketsBetweenClockReadings = 32;

} // namespace

FfmpegScan::FfmpegScan(std::shared_ptr<const ByteStore> store, const AVInputFormat& format,
                       const TimeLine& line, std::int64_t from, std::int64_t estimate) noexcept
    : store_(std::move(store)), format_(format), line_(line), from_(from), length_(estimate) {}

bool FfmpegScan::open() {
    packet_.reset(av_packet_alloc());
    demuxer_ = Demuxer::open(store_, format_);
    if (!packet_ || !demuxer_) {
        return false;
    }
    if (from_ > 0 && !demuxer_->seek(line_.ptsOf(from_))) {
        demuxer_ = Demuxer::open(store_, format_);
    }
    return demuxer_ != nullptr;
}

bool FfmpegScan::run(std::chrono::milliseconds slice) {
    const auto until = std::chrono::steady_clock::now() + slice;
    if (!done_ && !demuxer_ && !open()) {
        return finish();
    }
    while (!done_) {
        for (int n = 0; n < kPacketsBetweenClockReadings; ++n) {
            if (!demuxer_->read(*packet_)) {
                return finish();
            }
            const std::int64_t pts =
                packetEnd(*packet_, demuxer_->stream().time_base, line_.rate());
            end_ = std::max(end_, line_.frameAt(pts, end_));
        }
        if (std::chrono::steady_clock::now() >= until) {
            return false;
        }
    }
    return true;
}

bool FfmpegScan::finish() {
    if (end_ < 0 && from_ > 0 && demuxer_) {
        from_ = 0; // nothing to be found near the end: read everything
        demuxer_.reset();
        return false;
    }
    if (end_ >= 0) {
        length_ = end_;
    }
    done_ = true;
    demuxer_.reset();
    return true;
}

} // namespace tovik::sound::ffmpeg
