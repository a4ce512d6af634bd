// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/ffmpeg/FrameSource.h"

extern "C" {
#include <libavutil/intreadwrite.h>
}

namespace tovik::sound::ffmpeg {
namespace {

// Layout of AV_PKT_DATA_SKIP_SAMPLES: samples to drop at the start, samples to drop at the end.
constexpr std::size_t kSkipDataBytes = 10;
constexpr std::size_t kEndSkipOffset = 4;

std::int64_t paddingSamples(const AVPacket& packet) noexcept {
    std::size_t size = 0;
    const std::uint8_t* data = av_packet_get_side_data(&packet, AV_PKT_DATA_SKIP_SAMPLES, &size);
    return data != nullptr && size >= kSkipDataBytes ? AV_RL32(data + kEndSkipOffset) : 0;
}

CodecPtr openCodec(const AVStream& stream) {
    const AVCodec* codec = avcodec_find_decoder(stream.codecpar->codec_id);
    CodecPtr context(codec == nullptr ? nullptr : avcodec_alloc_context3(codec));
    if (!context || avcodec_parameters_to_context(context.get(), stream.codecpar) < 0) {
        return nullptr;
    }
    context->pkt_timebase = stream.time_base;
    context->thread_count = 1;
    if (avcodec_open2(context.get(), codec, nullptr) < 0) {
        return nullptr;
    }
    return context;
}

} // namespace

std::int64_t packetEnd(const AVPacket& packet, AVRational timeBase, int rate) noexcept {
    if (packet.pts == AV_NOPTS_VALUE) {
        return AV_NOPTS_VALUE;
    }
    const std::int64_t end = av_sat_add64(packet.pts, packet.duration);
    return av_sat_sub64(end, av_rescale_q(paddingSamples(packet), {1, rate}, timeBase));
}

std::unique_ptr<FrameSource> FrameSource::open(std::unique_ptr<Demuxer> demuxer) {
    CodecPtr codec = openCodec(demuxer->stream());
    if (!codec) {
        return nullptr;
    }
    std::unique_ptr<FrameSource> source(new FrameSource(std::move(demuxer), std::move(codec)));
    return source->packet_ && source->frame_ ? std::move(source) : nullptr;
}

FrameSource::FrameSource(std::unique_ptr<Demuxer> demuxer, CodecPtr codec)
    : demuxer_(std::move(demuxer)), codec_(std::move(codec)), packet_(av_packet_alloc()),
      frame_(av_frame_alloc()) {}

const AVFrame* FrameSource::next() noexcept {
    while (!ended_) {
        const int result = avcodec_receive_frame(codec_.get(), frame_.get());
        if (result == 0) {
            lost_ = false;
            return frame_.get();
        }
        if (result == AVERROR(EAGAIN) && !draining_) {
            feed();
        } else if (result == AVERROR_EOF || draining_) {
            ended_ = true;
        } else {
            lost_ = true; // a damaged frame; the next one tells how long the hole is
            feed();
        }
    }
    return nullptr;
}

void FrameSource::feed() noexcept {
    while (demuxer_->read(*packet_)) {
        note(*packet_);
        if (!isBeforeStart(*packet_)) {
            if (avcodec_send_packet(codec_.get(), packet_.get()) < 0) {
                lost_ = true;
            }
            return;
        }
    }
    draining_ = true;
    avcodec_send_packet(codec_.get(), nullptr);
}

void FrameSource::note(const AVPacket& packet) noexcept {
    if (!anyPacket_) {
        anyPacket_ = true;
        firstByte_ = packet.pos;
        firstPts_ = packet.pts;
    }
    lastByte_ = packet.pos;
    lastPacketEnd_ = packetEnd(packet, stream().time_base, stream().codecpar->sample_rate);
}

bool FrameSource::isBeforeStart(const AVPacket& packet) const noexcept {
    return decodeFrom_ != AV_NOPTS_VALUE && packet.pts != AV_NOPTS_VALUE &&
           av_sat_add64(packet.pts, packet.duration) <= decodeFrom_;
}

bool FrameSource::seek(std::int64_t pts, std::int64_t decodeFrom) noexcept {
    if (!demuxer_->seek(pts)) {
        return false;
    }
    avcodec_flush_buffers(codec_.get());
    decodeFrom_ = decodeFrom;
    lastPacketEnd_ = AV_NOPTS_VALUE;
    lost_ = draining_ = ended_ = false;
    return true;
}

} // namespace tovik::sound::ffmpeg
