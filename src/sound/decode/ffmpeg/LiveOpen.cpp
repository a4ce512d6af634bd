// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/ffmpeg/LiveOpen.h"

#include "sound/decode/ffmpeg/FrameSource.h"
#include "sound/decode/ffmpeg/SampleConverter.h"

#include <algorithm>
#include <array>
#include <vector>

namespace tovik::sound::ffmpeg {
namespace {

constexpr std::size_t kHeadBytes = 4096;

/// Frames that a packet of a sane stream has at most; more are left out.
constexpr int kMostFrames = 1 << 20;

/// A station is joined in the middle of a frame, which makes a probe slow and unsure: so its type
/// is believed, unless the first bytes say otherwise beyond doubt.
struct Kind {
    std::string_view type;
    const char* demuxer;
};

constexpr std::array kTypes = {
    Kind{"audio/mpeg", "mp3"},    Kind{"audio/mp3", "mp3"},    Kind{"audio/x-mpeg", "mp3"},
    Kind{"audio/mpeg3", "mp3"},   Kind{"audio/x-mp3", "mp3"},  Kind{"audio/aac", "aac"},
    Kind{"audio/aacp", "aac"},    Kind{"audio/x-aac", "aac"},  Kind{"application/ogg", "ogg"},
    Kind{"audio/ogg", "ogg"},     Kind{"audio/vorbis", "ogg"}, Kind{"audio/opus", "ogg"},
    Kind{"audio/x-flac", "flac"}, Kind{"audio/flac", "flac"},  Kind{"audio/wav", "wav"},
    Kind{"audio/x-wav", "wav"},   Kind{"video/ogg", "ogg"},    Kind{"audio/webm", "matroska"},
    Kind{"video/mp2t", "mpegts"}, Kind{"audio/mp4", "mov"},    Kind{"video/mp4", "mov"},
    Kind{"audio/x-m4a", "mov"},
};

/// What may be found by content, by the names of the library.
constexpr std::array<std::string_view, 9> kKnown = {
    "mpegts",       "mp3", "aac", "ogg", "flac", "wav", "asf", "mov,mp4,m4a,3gp,3g2,mj2",
    "matroska,webm"};

/// The stream as a store that is read from front to back. Its first bytes may be read once before.
class LiveStore final : public ByteStore {
public:
    explicit LiveStore(std::shared_ptr<LiveBytes> bytes) : bytes_(std::move(bytes)) {
        head_.resize(kHeadBytes);
        head_.resize(bytes_->read(head_));
    }

    [[nodiscard]] std::span<const std::byte> head() const noexcept { return head_; }

    [[nodiscard]] std::int64_t readAt(std::int64_t offset,
                                      std::span<std::byte> into) const noexcept override {
        if (offset != position_) {
            return -1;
        }
        std::size_t got = 0;
        const auto at = static_cast<std::size_t>(offset);
        if (at < head_.size()) {
            got = std::min(head_.size() - at, into.size());
            std::ranges::copy(std::span(head_).subspan(at, got), into.begin());
        } else {
            got = bytes_->read(into);
        }
        position_ += static_cast<std::int64_t>(got);
        return static_cast<std::int64_t>(got);
    }

    [[nodiscard]] std::int64_t size() const noexcept override { return -1; }

private:
    std::shared_ptr<LiveBytes> bytes_;
    std::vector<std::byte> head_;
    mutable std::int64_t position_ = 0;
};

const AVInputFormat* byContent(std::span<const std::byte> head) {
    std::vector<unsigned char> bytes;
    for (const std::byte byte : head) {
        bytes.push_back(std::to_integer<unsigned char>(byte));
    }
    const auto count = static_cast<int>(bytes.size());
    bytes.resize(bytes.size() + AVPROBE_PADDING_SIZE);
    AVProbeData data = {"", bytes.data(), count, nullptr};
    int score = 0;
    const AVInputFormat* const found = av_probe_input_format3(&data, 1, &score);
    const bool known = found != nullptr && std::ranges::count(kKnown, found->name) > 0;
    return known && score > AVPROBE_SCORE_EXTENSION ? found : nullptr;
}

const AVInputFormat* byType(std::string_view contentType) {
    const auto* const row = std::ranges::find(kTypes, contentType, &Kind::type);
    return row == kTypes.end() ? nullptr : av_find_input_format(row->demuxer);
}

class LiveDecoder final : public LiveSound {
public:
    explicit LiveDecoder(std::unique_ptr<FrameSource> frames) : frames_(std::move(frames)) {}

    [[nodiscard]] LiveBlock next() override {
        while (const AVFrame* frame = frames_->next()) {
            const int channels = frame->ch_layout.nb_channels == 1 ? 1 : 2;
            if (frame->nb_samples <= 0 || frame->nb_samples > kMostFrames ||
                frame->sample_rate <= 0 || frame->ch_layout.nb_channels <= 0) {
                continue;
            }
            samples_.resize(static_cast<std::size_t>(frame->nb_samples) *
                            static_cast<std::size_t>(channels));
            converter_.convert(*frame, 0, static_cast<std::size_t>(channels), samples_);
            return {samples_, frame->sample_rate, channels, frames_->lastByte()};
        }
        return {};
    }

    [[nodiscard]] std::int64_t bitRate() const noexcept override {
        return frames_->stream().codecpar->bit_rate;
    }

    [[nodiscard]] std::string takeTitle() override { return frames_->takeTitle(); }

private:
    std::unique_ptr<FrameSource> frames_;
    SampleConverter converter_;
    std::vector<float> samples_;
};

} // namespace

std::unique_ptr<LiveSound> openLive(std::shared_ptr<LiveBytes> bytes,
                                    std::string_view contentType) {
    silenceLog();
    auto store = std::make_shared<LiveStore>(std::move(bytes));
    const AVInputFormat* format = byContent(store->head());
    if (format == nullptr) {
        format = byType(contentType);
    }
    if (format == nullptr) {
        return nullptr;
    }
    auto demuxer = Demuxer::open(std::move(store), *format, Reach::live);
    auto frames = demuxer ? FrameSource::open(std::move(demuxer)) : nullptr;
    return frames ? std::make_unique<LiveDecoder>(std::move(frames)) : nullptr;
}

} // namespace tovik::sound::ffmpeg
