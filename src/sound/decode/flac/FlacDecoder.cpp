// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/flac/FlacDecoder.h"

#include "sound/decode/Downmix.h"
#include "sound/decode/flac/FlacScan.h"
#include "sound/decode/LeadingTags.h"
#include "sound/decode/LinkedDecoder.h"
#include "sound/decode/OggHead.h"
#include "sound/decode/OggLinks.h"
#include "sound/decode/Resampler.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace tovik::sound::flac {
namespace {

constexpr std::string_view kMagic = "fLaC"; // RFC 9639, 8
// Seeks stop at this frame, months away, so that no arithmetic overflows.
constexpr std::int64_t kFarthestFrame = std::int64_t{1} << 40;

bool isNative(const ByteStore& store) {
    const auto head = readBytes(store, leadingTagBytes(store), kMagic.size());
    return std::ranges::equal(head, std::as_bytes(std::span(kMagic)));
}

OpenResult openStream(const std::shared_ptr<const ByteStore>& store, bool inOgg,
                      std::optional<std::int64_t> length = std::nullopt) {
    std::unique_ptr<FlacStream> stream = FlacStream::open(store, inOgg);
    if (!stream || stream->info().rate < Resampler::kLowestRate ||
        stream->info().rate > Resampler::kHighestRate || !stream->next()) {
        return {OpenStatus::broken, nullptr};
    }
    const std::int64_t frames = length.value_or(stream->info().frames);
    return {OpenStatus::opened,
            std::make_unique<FlacDecoder>(store, inOgg, std::move(stream), frames)};
}

// The library plays the first stream, or runs into the next where that has the same number: so each
// is opened for itself. How long it is, its last page tells even where its head does not.
OpenResult openInOgg(const std::shared_ptr<const ByteStore>& store) {
    OpenResult first = openStream(store, true);
    if (!first.decoder || endsWithFirstLink(*store, first.decoder->lengthFrames())) {
        return first;
    }
    const std::vector<OggLink> links = oggLinks(*store);
    if (links.size() < 2) {
        return first;
    }
    std::vector<std::unique_ptr<Decoder>> decoders;
    for (const OggLink& link : links) {
        const auto part = partOf(store, link.begin, link.end - link.begin);
        if (oggContent(*part) == OggContent::flac) {
            if (OpenResult opened = openStream(part, true, link.frames); opened.decoder) {
                decoders.push_back(std::move(opened.decoder));
            }
        }
    }
    std::unique_ptr<Decoder> decoder = LinkedDecoder::create(std::move(decoders));
    return {decoder ? OpenStatus::opened : OpenStatus::broken, std::move(decoder)};
}

} // namespace

bool isFlac(const ByteStore& store) {
    return oggContent(store) == OggContent::flac || isNative(store);
}

OpenResult openFlac(const std::shared_ptr<const ByteStore>& store) {
    if (oggContent(*store) == OggContent::flac) {
        return openInOgg(store);
    }
    return isNative(*store) ? openStream(store, false) : OpenResult{OpenStatus::notMine, nullptr};
}

FlacDecoder::FlacDecoder(std::shared_ptr<const ByteStore> store, bool inOgg,
                         std::unique_ptr<FlacStream> stream, std::int64_t length)
    : store_(std::move(store)), inOgg_(inOgg), length_(length), stream_(std::move(stream)),
      channels_(stream_->info().channels == 1 ? 1 : 2), blocks_(stream_->info().rate, channels_) {
    placeFrom(stream_->block().place);
}

std::unique_ptr<PacketScan> FlacDecoder::lengthScan() {
    return std::make_unique<FlacScan>(store_, inOgg_);
}

std::size_t FlacDecoder::read(std::span<float> interleaved) {
    const auto channels = static_cast<std::size_t>(channels_);
    std::size_t done = 0;
    while (done < interleaved.size()) {
        if (blocks_.empty()) {
            if (!stream_->next()) {
                break;
            }
            placeFrom(stream_->block().place);
        }
        done += blocks_.take(interleaved.subspan(done)) * channels;
    }
    return done / channels;
}

// Hands on the block that was decoded last, from `frame` on.
void FlacDecoder::placeFrom(std::int64_t frame) {
    const FlacBlock& block = stream_->block();
    const auto dropped = static_cast<std::size_t>(frame - block.place) * block.channels;
    const std::span<const float> in = std::span(block.samples).subspan(dropped);
    const std::span<float> out = blocks_.put(frame, in.size() / block.channels);
    if (block.channels == static_cast<std::size_t>(channels_)) {
        std::ranges::copy(in, out.begin());
    } else if (channels_ == 2) {
        Downmix(usualSpeakers(block.channels)).mix(in, out);
    } else {
        std::ranges::fill(out, 0.0F); // a stream that began with one channel and goes on with more
    }
}

std::int64_t FlacDecoder::seek(std::int64_t frame) {
    const std::int64_t target = std::clamp<std::int64_t>(frame, 0, kFarthestFrame);
    if (stream_->seek(target)) {
        blocks_.standAt(target);
        placeFrom(target);
        return target;
    }
    // There is no such frame, or the head hides it: from the last one that it tells, or else from
    // the beginning, the stream itself says.
    const std::int64_t told = stream_->info().frames;
    if (told <= 0 || target < told || !stream_->seek(told - 1)) {
        stream_->rewind();
    }
    return runTo(target);
}

// Decodes on to `frame`, or to the end if that comes first; where it stands then.
std::int64_t FlacDecoder::runTo(std::int64_t frame) {
    do {
        if (stream_->block().end() > frame) {
            const std::int64_t stands = std::max(frame, stream_->block().place);
            blocks_.standAt(frame);
            placeFrom(stands);
            return frame;
        }
    } while (stream_->next());
    blocks_.standAt(stream_->block().end());
    return blocks_.position();
}

} // namespace tovik::sound::flac
