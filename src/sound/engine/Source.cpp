// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/Source.h"

#include "sound/mix/FeedLine.h"

#include <algorithm>
#include <utility>

namespace tovik::sound {

namespace {

/// Frames of the mix decoded at a time; the lock is held that long: well under a millisecond.
constexpr int kSliceFrames = 2048;

struct FeedSizes {
    std::size_t capacity;
    /// A new feed starts with this much, so that it can sound before its reader has woken up.
    std::size_t first;
    /// A feed that holds fewer is filled up. A slice more always finds room behind these.
    std::size_t least;
};

/// About 1.5 s of the mix lie decoded ahead; a start has 93 ms.
constexpr FeedSizes kSizes{65536, 4096, 32768};

/// As much, and what a device has queued and may want once more; a start lasts until what is
/// queued can be changed again.
constexpr FeedSizes kSizesForRemix{131072, 12288, 32768};

/// 4 to 6 s of a disc, with what a device has queued.
constexpr FeedSizes kSizesForDisc{262144, 4096, 176400};
constexpr FeedSizes kSizesForDiscRemix{524288, 12288, 176400};

constexpr FeedSizes sizesFor(Remix remix, Reading reading) {
    if (reading == Reading::disc) {
        return remix == Remix::possible ? kSizesForDiscRemix : kSizesForDisc;
    }
    return remix == Remix::possible ? kSizesForRemix : kSizes;
}

/// What a feed must still hold when it is left, so that it can fade out: the block being mixed, and
/// a ramp.
constexpr std::size_t kFadeFrames = kMaxBlockFrames + kRampFrames;

/// A scan for the exact length may hold up the answer for this long.
constexpr std::chrono::milliseconds kScanPatience(50);

/// How far the length stays ahead of a decoder that went on beyond what the header said.
constexpr std::int64_t kShortHeaderSeconds = 2;

/// Frames of a channel of `rate` that make a slice.
std::size_t sliceFrames(int rate) {
    return static_cast<std::size_t>(std::clamp(kSliceFrames * rate / kMixRate, 64, 8192));
}

} // namespace

Source::Source(Opener opener, Remix remix, Reading reading)
    : remix_(remix), reading_(reading), opener_(std::move(opener)) {}

OpenStatus Source::open() {
    const Opener opener = std::exchange(opener_, nullptr);
    OpenResult opened = opener(calledOff_.get_token());
    if (opened.status != OpenStatus::opened) {
        return opened.status;
    }
    decoder_ = std::move(opened.decoder);
    facts_ = {.rate = decoder_->sampleRate(),
              .channels = decoder_->channels(),
              .loops = decoder_->loops(),
              .orders = decoder_->orders()};
    const std::size_t slice = sliceFrames(facts_.rate);
    decoded_.resize(slice * static_cast<std::size_t>(facts_.channels));
    converter_.emplace(facts_.rate, facts_.channels, slice);
    length_.store(decoder_->lengthFrames(), std::memory_order_release);
    const base::MutexLock lock(scanMutex_);
    scan_ = decoder_->lengthScan();
    estimate_.store(scan_ != nullptr, std::memory_order_release);
    return OpenStatus::opened;
}

void Source::begin() {
    OpenStatus status = OpenStatus::noFile;
    {
        const base::MutexLock lock(mutex_);
        status = open();
        if (status == OpenStatus::opened) {
            known_.store(true, std::memory_order_release);
            beginAsked();
        }
    }
    if (status == OpenStatus::opened) {
        scan(kScanPatience);
    }
    answer(status);
}

void Source::answer(OpenStatus status) {
    {
        const base::MutexLock lock(answerMutex_);
        if (answer_) {
            return;
        }
        answer_ = status;
    }
    answered_.notifyAll();
    if (status != OpenStatus::opened) {
        const base::MutexLock lock(askMutex_);
        refused_ = true;
        if (asked_ != nullptr) {
            std::exchange(asked_, nullptr)->complete();
        }
    }
}

void Source::refuse() {
    answer(OpenStatus::noFile);
}

std::optional<OpenStatus> Source::waitForAnswer(std::chrono::milliseconds patience) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    const base::MutexLock lock(answerMutex_);
    while (!answer_ && answered_.waitUntil(answerMutex_, deadline)) {
    }
    return answer_;
}

bool Source::needsNoThread() const {
    const base::MutexLock lock(askMutex_);
    return feeds_ == 0 && !lengthIsEstimate();
}

void Source::scan(std::chrono::milliseconds slice) {
    const base::MutexLock lock(scanMutex_);
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
    converter_->reset();
    return stands;
}

std::shared_ptr<Feed> Source::askForFeed(std::int64_t frame) {
    const base::MutexLock lock(askMutex_);
    auto feed = std::make_shared<Feed>(frame, sizesFor(remix_, reading_).capacity, ++feeds_);
    if (refused_) {
        feed->complete();
    } else {
        asked_ = feed;
    }
    return feed;
}

std::shared_ptr<Feed> Source::beginFeed(std::int64_t frame) {
    std::shared_ptr<Feed> feed = askForFeed(frame);
    const base::MutexLock lock(mutex_);
    beginAsked();
    return feed;
}

std::shared_ptr<Feed> Source::takeAsked() {
    const base::MutexLock lock(askMutex_);
    return std::exchange(asked_, nullptr);
}

bool Source::beginAsked() {
    if (decoder_ == nullptr) {
        return false;
    }
    const std::shared_ptr<Feed> asked = takeAsked();
    if (asked == nullptr) {
        return false;
    }
    decodeTo(kFadeFrames);
    asked->moveAnchor(goTo(asked->anchorFrame()));
    feed_ = asked;
    decodeTo(sizesFor(remix_, reading_).first);
    return true;
}

void Source::prepareFade() {
    const base::MutexLock lock(mutex_);
    decodeTo(kFadeFrames);
}

void Source::decodeTo(std::size_t frames) {
    while (feed_ != nullptr && !feed_->isComplete() && feed_->readableFrames() < frames) {
        decodeSlice();
    }
}

std::size_t Source::decode(std::span<float> interleaved) {
    if (decoder_ == nullptr) {
        return 0;
    }
    const std::size_t frames = decoder_->read(interleaved);
    const std::int64_t now = position() + static_cast<std::int64_t>(frames);
    position_.store(now, std::memory_order_release);
    if (frames * static_cast<std::size_t>(facts_.channels) < interleaved.size()) {
        // Whatever header or scan have said: here it ends.
        length_.store(now, std::memory_order_release);
        estimate_.store(false, std::memory_order_release);
        end_.store(true, std::memory_order_release);
    } else if (!facts_.loops && now > lengthFrames()) {
        // A header that told too little: the end is not here, so it stays out of reach.
        length_.store(now + kShortHeaderSeconds * facts_.rate, std::memory_order_release);
    }
    return frames;
}

void Source::decodeSlice() {
    decoder_->noteAhead(std::chrono::milliseconds(feed_->readableFrames() * 1000 / kMixRate));
    const std::size_t frames = decode(decoded_);
    const std::span<const float> decoded =
        std::span<const float>(decoded_).first(frames * static_cast<std::size_t>(facts_.channels));
    feed_->write(converter_->convert(decoded));
    if (atEnd()) {
        finishFeed();
    }
}

void Source::finishFeed() {
    for (auto rest = converter_->flush(); !rest.empty(); rest = converter_->flush()) {
        feed_->write(rest);
    }
    feed_->complete();
}

std::size_t Source::roomForSlice() const noexcept {
    // A last slice is followed by what the resampler holds back.
    return 2 * converter_->mostFrames();
}

bool Source::fillSlice() {
    const base::MutexLock lock(mutex_);
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
    const base::MutexLock lock(mutex_);
    decodeTo(std::min(frames, sizesFor(remix_, reading_).least));
}

std::optional<std::chrono::milliseconds> Source::timeToRefill() const {
    const base::MutexLock lock(mutex_);
    if (feed_ == nullptr || feed_->isComplete()) {
        return std::nullopt;
    }
    const std::size_t ahead = feed_->readableFrames();
    const std::size_t spare = ahead - std::min(ahead, sizesFor(remix_, reading_).least);
    return std::chrono::milliseconds(spare * 1000 / kMixRate);
}

std::size_t Source::read(std::span<float> interleaved) {
    const base::MutexLock lock(mutex_);
    return decode(interleaved);
}

void Source::seek(std::int64_t frame) {
    const base::MutexLock lock(mutex_);
    if (decoder_ != nullptr) {
        goTo(frame);
    }
}

} // namespace tovik::sound
