// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/ffmpeg/Demuxer.h"

namespace tovik::sound::ffmpeg {
namespace {

// A demuxer that cannot make sense of one place often goes on behind it.
constexpr int kErrorsInARow = 16;

// How much of a stream is looked at before it sounds, in bytes and in units of the library.
constexpr std::int64_t kLiveProbeBytes = std::int64_t{128} * 1024;
constexpr std::int64_t kLiveProbeTime = AV_TIME_BASE / 2;

// No file of ours may make a demuxer open another one.
int refuseToOpen(AVFormatContext* /*context*/, AVIOContext** /*opened*/, const char* /*name*/,
                 int /*flags*/, AVDictionary** /*options*/) {
    return AVERROR(EACCES);
}

} // namespace

std::unique_ptr<Demuxer> Demuxer::open(std::shared_ptr<const ByteStore> store,
                                       const AVInputFormat& format, Reach reach) {
    std::unique_ptr<Demuxer> demuxer(new Demuxer(std::move(store)));
    return demuxer->start(format, reach) ? std::move(demuxer) : nullptr;
}

bool Demuxer::start(const AVInputFormat& format, Reach reach) {
    AVFormatContext* context = avformat_alloc_context();
    if (context == nullptr || reader_.context() == nullptr) {
        avformat_free_context(context);
        return false;
    }
    context->pb = reader_.context();
    context->io_open = &refuseToOpen;
    context->max_probe_packets = 0; // or 16-bit WAV files are searched for other codecs for 10 ms
    if (reach == Reach::live) {
        context->probesize = kLiveProbeBytes;
        context->max_analyze_duration = kLiveProbeTime;
    }
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

std::string Demuxer::takeTitle() {
    if ((stream_->event_flags & AVSTREAM_EVENT_FLAG_METADATA_UPDATED) == 0) {
        return {};
    }
    stream_->event_flags &= ~AVSTREAM_EVENT_FLAG_METADATA_UPDATED;
    const auto text = [this](const char* key) {
        const AVDictionaryEntry* const entry = av_dict_get(stream_->metadata, key, nullptr, 0);
        return std::string(entry != nullptr ? entry->value : "");
    };
    const std::string artist = text("artist");
    const std::string title = text("title");
    return artist.empty() || title.empty() ? artist + title : artist + " - " + title;
}

} // namespace tovik::sound::ffmpeg
