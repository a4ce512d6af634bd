// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/ffmpeg/Demuxer.h"

namespace tovik::sound::ffmpeg {
namespace {

// A demuxer that cannot make sense of one place often goes on behind it.
constexpr int kErrorsInARow = 16;

// No file of ours may make a demuxer open another one.
int refuseToOpen(AVFormatContext* /*context*/, AVIOContext** /*opened*/, const char* /*name*/,
                 int /*flags*/, AVDictionary** /*options*/) {
    return AVERROR(EACCES);
}

} // namespace

std::unique_ptr<Demuxer> Demuxer::open(std::shared_ptr<const ByteStore> store,
                                       const AVInputFormat& format) {
    std::unique_ptr<Demuxer> demuxer(new Demuxer(std::move(store)));
    return demuxer->start(format) ? std::move(demuxer) : nullptr;
}

bool Demuxer::start(const AVInputFormat& format) {
    AVFormatContext* context = avformat_alloc_context();
    if (context == nullptr || reader_.context() == nullptr) {
        avformat_free_context(context);
        return false;
    }
    context->pb = reader_.context();
    context->io_open = &refuseToOpen;
    context->max_probe_packets = 0; // or 16-bit WAV files are searched for other codecs for 10 ms
    if (avformat_open_input(&context, "", &format, nullptr) < 0) {
        return false; // the library has freed the context
    }
    context_.reset(context);
    avformat_find_stream_info(context, nullptr);
    const int index = av_find_best_stream(context, AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0);
    if (index < 0) {
        return false;
    }
    const std::span streams(context->streams, context->nb_streams);
    for (AVStream* stream : streams) {
        stream->discard = stream->index == index ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    }
    stream_ = streams[static_cast<std::size_t>(index)];
    return true;
}

bool Demuxer::read(AVPacket& packet) noexcept {
    int errors = 0;
    while (errors < kErrorsInARow) {
        av_packet_unref(&packet);
        const int result = av_read_frame(context_.get(), &packet);
        if (result == AVERROR_EOF) {
            return false;
        }
        if (result < 0) {
            ++errors;
        } else if (packet.stream_index == stream_->index) {
            return true;
        }
    }
    return false;
}

bool Demuxer::seek(std::int64_t pts) noexcept {
    return av_seek_frame(context_.get(), stream_->index, pts, AVSEEK_FLAG_BACKWARD) >= 0;
}

} // namespace tovik::sound::ffmpeg
