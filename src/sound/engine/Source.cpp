// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/Source.h"

#include "sound/mix/FeedLine.h"
#include "sound/output/OutputDevice.h"

#include <algorithm>
#include <utility>

namespace tovik::sound {

namespace {

/// Frames of the mix decoded at a time; the lock is held that long: well under a millisecond.
constexpr int kSliceFrames = 2048;

struct FeedSizes {
    std::size_t capacity;
    /// A new feed starts with this much, so that it can sound before the feeder has woken up.
    std::size_t first;
};

/// About 1.5 s of the mix lie decoded ahead; a start has 93 ms.
constexpr FeedSizes kSizes{65536, 4096};

/// As much, and what a device has queued and may want once more; a start lasts until what is
/// queued can be changed again.
constexpr FeedSizes kSizesForRemix{131072, 12288};

constexpr FeedSizes sizesFor(Remix remix) {
    return remix == Remix::possible ? kSizesForRemix : kSizes;
}

/// A slice more always finds room behind these; a feed that holds fewer is filled up.
constexpr std::size_t kMostReadyFrames = kSizes.capacity / 2;

/// What a feed must still hold when it is left, so that it can fade out: the block being mixed, and
/// a ramp.
constexpr std::size_t kFadeFrames = kMaxBlockFrames + kRampFrames;

/// How far the length stays ahead of a decoder that went on beyond what the header said.
constexpr std::int64_t kShortHeaderSeconds = 2;

/// Frames of a channel of `rate` that make a slice.
std::size_t sliceFrames(int rate) {
    return static_cast<std::size_t>(std::clamp(kSliceFrames * rate / kMixRate, 64, 8192));
}

} // namespace

Source::Source(std::unique_ptr<Decoder> decoder, Remix remix)
    : rate_(decoder->sampleRate()), channels_(decoder->channels()), loops_(decoder->loops()),
      orders_(decoder->orders()), remix_(remix), scan_(decoder->lengthScan()),
      length_(decoder->lengthFrames()), estimate_(scan_ != nullptr), decoder_(std::move(decoder)),
      decoded_(sliceFrames(rate_) * static_cast<std::size_t>(channels_)),
      converter_(rate_, channels_, sliceFrames(rate_)) {}

void Source::scan(std::chrono::milliseconds slice) {
    const std::scoped_lock lock(scanMutex_);
    if (scan_ == nullptr || !scan_->run(slice)) {
        return;
    }
    if (!atEnd()) {
        length_.store(scan_->lengthFrames(), std::memory_order_release);
    }
    estimate_.store(false, std::memory_order_release);
    scan_.reset();
}

std::int64_t Source::goTo(std::int64_t frame) {
    const std::int64_t stands = frame == position() && !atEnd() ? frame : decoder_->seek(frame);
    position_.store(stands, std::memory_order_release);
    end_.store(false, std::memory_order_release);
    converter_.reset();
    return stands;
}

std::shared_ptr<Feed> Source::askForFeed(std::int64_t frame) {
    const std::scoped_lock lock(askMutex_);
    asked_ = std::make_shared<Feed>(frame, sizesFor(remix_).capacity, ++feeds_);
    return asked_;
}

std::shared_ptr<Feed> Source::beginFeed(std::int64_t frame) {
    std::shared_ptr<Feed> feed = askForFeed(frame);
    const std::scoped_lock lock(mutex_);
    beginAsked();
    return feed;
}

bool Source::beginAsked() {
    std::shared_ptr<Feed> asked;
    {
        const std::scoped_lock lock(askMutex_);
        asked = std::exchange(asked_, nullptr);
    }
    if (asked == nullptr) {
        return false;
    }
    decodeTo(kFadeFrames);
    asked->moveAnchor(goTo(asked->anchorFrame()));
    feed_ = std::move(asked);
    decodeTo(sizesFor(remix_).first);
    return true;
}

void Source::prepareFade() {
    const std::scoped_lock lock(mutex_);
    decodeTo(kFadeFrames);
}

void Source::decodeTo(std::size_t frames) {
    while (feed_ != nullptr && !feed_->isComplete() && feed_->readableFrames() < frames) {
        decodeSlice();
    }
}

std::size_t Source::decode(std::span<float> interleaved) {
    const std::size_t frames = decoder_->read(interleaved);
    const std::int64_t now = position() + static_cast<std::int64_t>(frames);
    position_.store(now, std::memory_order_release);
    if (frames * static_cast<std::size_t>(channels_) < interleaved.size()) {
        // Whatever header or scan have said: here it ends.
        length_.store(now, std::memory_order_release);
        estimate_.store(false, std::memory_order_release);
        end_.store(true, std::memory_order_release);
    } else if (!loops_ && now > lengthFrames()) {
        // A header that told too little: the end is not here, so it stays out of reach.
        length_.store(now + kShortHeaderSeconds * rate_, std::memory_order_release);
    }
    return frames;
}

void Source::decodeSlice() {
    const std::size_t frames = decode(decoded_);
    const std::span<const float> decoded =
        std::span<const float>(decoded_).first(frames * static_cast<std::size_t>(channels_));
    feed_->write(converter_.convert(decoded));
    if (atEnd()) {
        finishFeed();
    }
}

void Source::finishFeed() {
    for (auto rest = converter_.flush(); !rest.empty(); rest = converter_.flush()) {
        feed_->write(rest);
    }
    feed_->complete();
}

std::size_t Source::roomForSlice() const noexcept {
    // A last slice is followed by what the resampler holds back.
    return 2 * converter_.mostFrames();
}

bool Source::fillSlice() {
    const std::scoped_lock lock(mutex_);
    if (beginAsked()) {
        return true;
    }
    if (feed_ == nullptr || feed_->isComplete() || feed_->writableFrames() < roomForSlice()) {
        return false;
    }
    decodeSlice();
    return true;
}

void Source::fillTo(std::size_t frames) {
    const std::scoped_lock lock(mutex_);
    decodeTo(std::min(frames, kMostReadyFrames));
}

std::optional<std::chrono::milliseconds> Source::timeToRefill() const {
    const std::scoped_lock lock(mutex_);
    if (feed_ == nullptr || feed_->isComplete()) {
        return std::nullopt;
    }
    const std::size_t ahead = feed_->readableFrames();
    const std::size_t spare = ahead - std::min(ahead, kMostReadyFrames);
    return std::chrono::milliseconds(spare * 1000 / kMixRate);
}

std::size_t Source::read(std::span<float> interleaved) {
    const std::scoped_lock lock(mutex_);
    return decode(interleaved);
}

void Source::seek(std::int64_t frame) {
    const std::scoped_lock lock(mutex_);
    goTo(frame);
}

} // namespace tovik::sound
