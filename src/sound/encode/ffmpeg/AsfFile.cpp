// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/encode/ffmpeg/AsfFile.h"

#include "sound/decode/ffmpeg/Handles.h"

extern "C" {
#include <libavutil/channel_layout.h>
#include <libavutil/dict.h>
#include <libavutil/error.h>
}

#include <algorithm>
#include <array>
#include <cstddef>

namespace tovik::sound::ffmpeg {

namespace {

constexpr int kChannels = 2;
constexpr float kFullScale = 32768.0F;

/// Closes file and context of a format that is written.
struct CloseOutput {
    void operator()(AVFormatContext* context) const noexcept {
        avio_closep(&context->pb);
        avformat_free_context(context);
    }
};

using OutputPtr = std::unique_ptr<AVFormatContext, CloseOutput>;

/// What the tags of this format are called by the library.
constexpr std::array<std::pair<std::string_view, const char*>, 5> kTagNames{{
    {"Title", "title"},
    {"Author", "artist"},
    {"WM/AlbumTitle", "album"},
    {"WM/Genre", "genre"},
    {"Copyright", "copyright"},
}};

std::string errorText(int code) {
    std::array<char, AV_ERROR_MAX_STRING_SIZE> text{};
    av_strerror(code, text.data(), text.size());
    return text.data();
}

class AsfFile final : public WmaFile {
public:
    /// 0, or the library's error.
    [[nodiscard]] int open(const std::string& path, const WmaForm& form) {
        const AVCodec* const codec = avcodec_find_encoder(AV_CODEC_ID_WMAV2);
        AVFormatContext* made = nullptr;
        // The name of a protocol in front, since a file's name may look like one.
        const int result =
            avformat_alloc_output_context2(&made, nullptr, "asf", ("file:" + path).c_str());
        output_.reset(made);
        if (codec == nullptr || result < 0) {
            return result < 0 ? result : AVERROR_ENCODER_NOT_FOUND;
        }
        codec_.reset(avcodec_alloc_context3(codec));
        stream_ = avformat_new_stream(output_.get(), nullptr);
        frame_.reset(av_frame_alloc());
        packet_.reset(av_packet_alloc());
        if (codec_ == nullptr || stream_ == nullptr || frame_ == nullptr || packet_ == nullptr) {
            return AVERROR(ENOMEM);
        }
        codec_->sample_fmt = AV_SAMPLE_FMT_FLTP;
        codec_->sample_rate = form.rate;
        codec_->bit_rate = form.bitrate;
        codec_->time_base = {1, form.rate};
        av_channel_layout_default(&codec_->ch_layout, kChannels);
        int step = avcodec_open2(codec_.get(), codec, nullptr);
        if (step >= 0) {
            step = avcodec_parameters_from_context(stream_->codecpar, codec_.get());
        }
        stream_->time_base = codec_->time_base;
        if (step >= 0) {
            step = prepareFrame();
        }
        return step >= 0 ? avio_open(&output_->pb, output_->url, AVIO_FLAG_WRITE) : step;
    }

    void setTag(const std::string& name, const std::string& value) override {
        const auto* const known = std::ranges::find(kTagNames, std::string_view(name),
                                                    [](const auto& row) { return row.first; });
        const char* const key = known != kTagNames.end() ? known->second : name.c_str();
        av_dict_set(&output_->metadata, key, value.c_str(), 0);
    }

    bool write(std::span<const std::int16_t> samples) override {
        if (!begin()) {
            return false;
        }
        while (!samples.empty() && error_ >= 0) {
            const auto frames = static_cast<std::size_t>(codec_->frame_size - filled_);
            const auto now = std::min(samples.size(), frames * kChannels);
            fill(samples.first(now));
            samples = samples.subspan(now);
            if (filled_ == codec_->frame_size) {
                encodeFrame();
            }
        }
        return error_ >= 0;
    }

    bool finish() override {
        if (!begin()) {
            return false;
        }
        if (filled_ > 0) {
            fillWithSilence();
            encodeFrame();
        }
        encode(nullptr);
        if (error_ >= 0) {
            note(av_write_trailer(output_.get()));
        }
        note(output_->pb->error);
        note(avio_closep(&output_->pb));
        return error_ >= 0;
    }

    [[nodiscard]] std::string failure() const override {
        return error_ < 0 ? errorText(error_) : std::string();
    }

private:
    [[nodiscard]] int prepareFrame() {
        frame_->format = codec_->sample_fmt;
        frame_->nb_samples = codec_->frame_size;
        frame_->sample_rate = codec_->sample_rate;
        const int copied = av_channel_layout_copy(&frame_->ch_layout, &codec_->ch_layout);
        return copied < 0 ? copied : av_frame_get_buffer(frame_.get(), 0);
    }

    /// The head goes first, once the tags are there.
    bool begin() {
        if (!begun_ && error_ >= 0) {
            begun_ = true;
            note(avformat_write_header(output_.get(), nullptr));
        }
        return error_ >= 0;
    }

    [[nodiscard]] std::span<float> plane(int channel) {
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): how the library keeps them
        return {reinterpret_cast<float*>(frame_->data[channel]),
                static_cast<std::size_t>(codec_->frame_size)};
    }

    void fill(std::span<const std::int16_t> samples) {
        if (filled_ == 0) {
            note(av_frame_make_writable(frame_.get()));
        }
        for (int channel = 0; channel < kChannels; ++channel) {
            const std::span<float> out = plane(channel).subspan(static_cast<std::size_t>(filled_));
            for (std::size_t i = 0; i < samples.size() / kChannels; ++i) {
                out[i] =
                    static_cast<float>(samples[i * kChannels + static_cast<std::size_t>(channel)]) /
                    kFullScale;
            }
        }
        filled_ += static_cast<int>(samples.size()) / kChannels;
    }

    void fillWithSilence() {
        for (int channel = 0; channel < kChannels; ++channel) {
            std::ranges::fill(plane(channel).subspan(static_cast<std::size_t>(filled_)), 0.0F);
        }
    }

    void encodeFrame() {
        frame_->pts = place_;
        place_ += codec_->frame_size;
        filled_ = 0;
        encode(frame_.get());
    }

    void encode(const AVFrame* frame) {
        if (error_ < 0) {
            return;
        }
        note(avcodec_send_frame(codec_.get(), frame));
        while (error_ >= 0) {
            const int got = avcodec_receive_packet(codec_.get(), packet_.get());
            if (got == AVERROR(EAGAIN) || got == AVERROR_EOF) {
                break;
            }
            note(got);
            if (error_ >= 0) {
                packet_->stream_index = stream_->index;
                av_packet_rescale_ts(packet_.get(), codec_->time_base, stream_->time_base);
                note(av_interleaved_write_frame(output_.get(), packet_.get()));
            }
        }
        note(output_->pb->error);
    }

    void note(int result) {
        if (result < 0 && error_ >= 0) {
            error_ = result;
        }
    }

    OutputPtr output_;
    CodecPtr codec_;
    AVStream* stream_ = nullptr; ///< of the output
    FramePtr frame_;
    PacketPtr packet_;
    int filled_ = 0;         ///< frames that stand in `frame_`
    std::int64_t place_ = 0; ///< frames before it
    bool begun_ = false;
    int error_ = 0;
};

} // namespace

std::unique_ptr<WmaFile> createAsfFile(const std::string& path, const WmaForm& form,
                                       std::string& failure) {
    silenceLog();
    auto file = std::make_unique<AsfFile>();
    if (const int error = file->open(path, form); error < 0) {
        failure = errorText(error);
        return nullptr;
    }
    return file;
}

} // namespace tovik::sound::ffmpeg
