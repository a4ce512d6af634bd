// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/ffmpeg/FfmpegDecoder.h"

#include "sound/decode/ffmpeg/FfmpegScan.h"
#include "sound/decode/Resampler.h"

#include <algorithm>
#include <array>

namespace tovik::sound::ffmpeg {
namespace {

// A longer jump of the time stamps, back or beyond the length, is a joint between recordings and
// not a hole in one.
constexpr std::int64_t kLongestHoleSeconds = 10;
// Inexact stamps may be this far from the true place without meaning a lost frame.
constexpr std::int64_t kStampSlackFrames = 512;
// Seeks stop at this frame, months away, so that no arithmetic on time stamps overflows.
constexpr std::int64_t kFarthestFrame = std::int64_t{1} << 40;

// How far before the frame sought reading and decoding start, in quarters of a second. The sound
// of a packet may need those before it; the later ways are for containers that then land behind the
// frame, and for frames beyond the end.
struct Approach {
    std::int64_t read;
    std::int64_t decode;
};

constexpr std::int64_t kFromStart = -1;
constexpr std::array<Approach, 4> kApproaches = {
    {{1, 1}, {8, 8}, {kFromStart, 8}, {kFromStart, 8}}};

} // namespace

FfmpegDecoder::FfmpegDecoder(OpenedSource source) noexcept : source_(std::move(source)) {}

bool FfmpegDecoder::start() {
    const AVFrame* frame = source_.frames->next();
    if (frame == nullptr || frame->sample_rate < Resampler::kLowestRate ||
        frame->sample_rate > Resampler::kHighestRate || frame->ch_layout.nb_channels <= 0) {
        return false;
    }
    const AVStream& stream = source_.frames->stream();
    const bool trustStart = source_.format->exactStamps && stream.start_time != AV_NOPTS_VALUE;
    const std::int64_t base = trustStart ? stream.start_time : frame->best_effort_timestamp;
    line_ = TimeLine(stream.time_base, frame->sample_rate, base == AV_NOPTS_VALUE ? 0 : base);
    channels_ = frame->ch_layout.nb_channels == 1 ? 1 : 2;
    length_ = measureLength();
    return place(*frame, stampOf(*frame, position_), slack()) || advance();
}

std::int64_t FfmpegDecoder::measureLength() const noexcept {
    const AVStream& stream = source_.frames->stream();
    const bool known = stream.duration != AV_NOPTS_VALUE && stream.duration > 0;
    std::int64_t frames =
        known ? av_rescale_q(stream.duration, stream.time_base, {1, line_.rate()}) : INT64_MAX;
    if (source_.format->length == LengthSource::packets && known) {
        // The header counts the encoder's delay, which is cut off.
        frames += std::min<std::int64_t>(0, line_.frameAt(source_.frames->firstPts(), 0));
    }
    const std::int64_t blockBytes = stream.codecpar->block_align;
    if (source_.format->length == LengthSource::bytes && blockBytes > 0) {
        const std::int64_t bytes = source_.store->size() - source_.frames->firstByte();
        frames = std::min(frames, bytes / blockBytes);
    }
    return frames == INT64_MAX ? 0 : std::max<std::int64_t>(frames, 0);
}

std::int64_t FfmpegDecoder::slack() const noexcept {
    return source_.format->exactStamps ? 0 : kStampSlackFrames;
}

std::unique_ptr<PacketScan> FfmpegDecoder::lengthScan() {
    const LengthSource from = source_.format->length;
    if (from != LengthSource::packets && from != LengthSource::tail) {
        return nullptr;
    }
    const std::int64_t tailFrom = from == LengthSource::tail ? length_ - line_.rate() : 0;
    return std::make_unique<FfmpegScan>(source_.store, *source_.demuxer, line_,
                                        std::max<std::int64_t>(tailFrom, 0), length_);
}

std::size_t FfmpegDecoder::read(std::span<float> interleaved) {
    const auto channels = static_cast<std::size_t>(channels_);
    const std::size_t wanted = interleaved.size() / channels;
    std::size_t done = 0;
    while (done < wanted) {
        const std::span<float> room = interleaved.subspan(done * channels);
        std::size_t count = wanted - done;
        if (silence_ > 0) {
            count = std::min(count, static_cast<std::size_t>(silence_));
            std::ranges::fill(room.first(count * channels), 0.0F);
            silence_ -= static_cast<std::int64_t>(count);
        } else if (current_ != nullptr) {
            const std::size_t left = static_cast<std::size_t>(current_->nb_samples) - taken_;
            count = std::min(count, left);
            converter_.convert(*current_, taken_, channels, room.first(count * channels));
            taken_ += count;
            if (count == left) {
                current_ = nullptr;
            }
        } else if (advance()) {
            continue;
        } else {
            break;
        }
        done += count;
        position_ += static_cast<std::int64_t>(count);
    }
    return done;
}

// Where `frame` begins. Stamps in whole milliseconds are moved to the exact place, since the sound
// is coded in blocks of one length.
std::int64_t FfmpegDecoder::stampOf(const AVFrame& frame, std::int64_t otherwise) noexcept {
    const std::int64_t at = line_.frameAt(frame.best_effort_timestamp, otherwise);
    if (source_.format->exactStamps || frame.nb_samples <= 0) {
        return at;
    }
    block_ = block_ == 0 ? frame.nb_samples : std::min<std::int64_t>(block_, frame.nb_samples);
    const std::int64_t past = at % block_;
    const std::int64_t error = past > block_ / 2 ? past - block_ : past;
    const std::int64_t most = 2 * line_.rate() / 1000;
    return error > most || -error > most ? at : at - error;
}

// Decodes until there is something to give; false at the end.
bool FfmpegDecoder::advance() {
    while (const AVFrame* frame = source_.frames->next()) {
        if (place(*frame, stampOf(*frame, position_), slack())) {
            return true;
        }
    }
    silenceTail();
    return silence_ > 0;
}

// Makes `frame`, which begins at `at`, the current one, behind silence if it stands behind a hole;
// false if nothing of it is to be heard.
bool FfmpegDecoder::place(const AVFrame& frame, std::int64_t at, std::int64_t slack) {
    if (frame.sample_rate != line_.rate() || frame.nb_samples <= 0) {
        return false; // of another recording in the same file
    }
    const std::int64_t hole = av_sat_sub64(at, position_);
    const std::int64_t longest = kLongestHoleSeconds * line_.rate();
    taken_ = 0;
    silence_ = 0;
    if ((hole > longest && at > length_) || hole < -longest) {
        line_.shift(at, position_);
    } else if (hole > slack) {
        silence_ = hole;
    } else if (hole < -slack) {
        if (-hole >= frame.nb_samples) {
            return false;
        }
        taken_ = static_cast<std::size_t>(-hole);
    }
    current_ = &frame;
    return true;
}

// Damaged packets at the very end have no later frame that tells of the hole.
void FfmpegDecoder::silenceTail() {
    const std::int64_t end = line_.frameAt(source_.frames->lastPacketEnd(), position_);
    const std::int64_t hole = av_sat_sub64(end, position_);
    if (source_.frames->lostPackets() && hole > 0 && hole <= kLongestHoleSeconds * line_.rate()) {
        silence_ = hole;
    }
}

std::int64_t FfmpegDecoder::seek(std::int64_t frame) {
    const std::int64_t target = std::clamp<std::int64_t>(frame, 0, kFarthestFrame);
    std::int64_t anchor = target;
    for (const Approach& approach : kApproaches) {
        const auto back = [&](std::int64_t quarters) {
            return std::max<std::int64_t>(anchor - quarters * line_.rate() / 4, 0);
        };
        const std::int64_t readFrom = approach.read == kFromStart ? 0 : back(approach.read);
        if (land(target, readFrom, back(approach.decode))) {
            return position_;
        }
        // If all packets lie before it, their end is near the place where to stand.
        anchor = std::min(anchor, line_.frameAt(source_.frames->lastPacketEnd(), anchor));
    }
    clear(); // the file cannot be read any more
    position_ = std::max<std::int64_t>(anchor, 0);
    return position_;
}

void FfmpegDecoder::clear() noexcept {
    current_ = nullptr;
    silence_ = 0;
    taken_ = 0;
}

// Stands at `frame`, or at the end if that comes first; false if this way does not lead there.
bool FfmpegDecoder::land(std::int64_t frame, std::int64_t readFrom, std::int64_t decodeFrom) {
    const std::int64_t context = source_.format->endContextSeconds * line_.rate();
    if (frame > length_ - context) {
        readFrom = std::max<std::int64_t>(readFrom - context, 0);
    }
    const std::int64_t firstPts = source_.frames->firstPts();
    const bool fromStart = readFrom == 0;
    const bool known = fromStart && firstPts != AV_NOPTS_VALUE;
    const std::int64_t pts = known ? firstPts : line_.ptsOf(readFrom);
    if (!source_.frames->seek(pts, decodeFrom == 0 ? pts : line_.ptsOf(decodeFrom))) {
        return false;
    }
    clear();
    position_ = frame;
    std::int64_t end = -1;
    while (const AVFrame* next = source_.frames->next()) {
        const std::int64_t at = stampOf(*next, end < 0 ? decodeFrom : end);
        if (end < 0 && at > frame && !fromStart) {
            return false;
        }
        end = av_sat_add64(at, next->nb_samples);
        if (end > frame && place(*next, at, 0)) {
            return true;
        }
    }
    if (source_.frames->lostPackets()) {
        end = std::max(end, line_.frameAt(source_.frames->lastPacketEnd(), end));
    }
    position_ = std::min(frame, std::max<std::int64_t>(end, 0));
    silenceTail();
    return end >= 0;
}

} // namespace tovik::sound::ffmpeg
