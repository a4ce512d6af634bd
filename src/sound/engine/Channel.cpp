// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/Channel.h"

#include "sound/output/OutputDevice.h"

#include <algorithm>
#include <utility>

namespace tovik::sound {

namespace {

constexpr std::int64_t kBytesPerSample = 2;

/// How far an estimated length stays ahead of the position, so that the end is never reported
/// before it comes.
constexpr std::int64_t kEstimateMarginSeconds = 2;
constexpr std::int64_t kEstimateMarginDivisor = 20;

} // namespace

Channel::Channel(FormatFamily family, std::uint32_t flags, Opener opener, Remix remix,
                 Reading reading)
    : Channel(std::make_shared<const std::atomic<FormatFamily>>(family), flags, std::move(opener),
              remix, reading) {}

Channel::Channel(Family family, std::uint32_t flags, Opener opener, Remix remix, Reading reading)
    : family_(std::move(family)), flags_(flags),
      source_(std::make_shared<Source>(std::move(opener), remix, reading)) {
    if (!isDecoding()) {
        voice_ = std::make_unique<Voice>(askForFeed(0), remix);
    }
}

Feed& Channel::beginFeed(std::int64_t frame) {
    return keep(source_->beginFeed(frame));
}

Feed& Channel::askForFeed(std::int64_t frame) {
    return keep(source_->askForFeed(frame));
}

Feed& Channel::keep(std::shared_ptr<Feed> feed) {
    feeds_.push_back(std::move(feed));
    current_ = feeds_.back().get();
    heardFrames_ = 0;
    feedUsed = started;
    return *current_;
}

bool Channel::dropFeed(const Feed* feed) {
    return std::erase_if(feeds_, [feed](const auto& kept) { return kept.get() == feed; }) > 0;
}

std::int64_t Channel::bytesFromFrames(std::int64_t frames) const noexcept {
    return frames * source_->channels() * kBytesPerSample;
}

std::int64_t Channel::framesFromBytes(std::int64_t bytes) const noexcept {
    return bytes / (source_->channels() * kBytesPerSample);
}

std::int64_t Channel::wrapped(std::int64_t frame) const noexcept {
    const std::int64_t length = std::max<std::int64_t>(source_->lengthFrames(), 0);
    if (source_->loops()) {
        return length > 0 ? frame % length : 0;
    }
    return source_->lengthIsEstimate() ? frame : std::min(frame, length);
}

std::int64_t Channel::heardOfFeed(std::int64_t heardClock) const noexcept {
    const auto block = voice_->heard(heardClock);
    if (block && block->feed == current_->number()) {
        const std::int64_t into =
            std::clamp<std::int64_t>(heardClock - block->clock, 0, block->given);
        heardFrames_ = std::max(heardFrames_, block->taken + into);
    }
    return heardFrames_;
}

bool Channel::ended(std::int64_t heardClock) const noexcept {
    if (rip != nullptr) {
        return rip->ended();
    }
    if (isDecoding()) {
        return source_->atEnd();
    }
    return current_->isComplete() && heardOfFeed(heardClock) == current_->writtenFrames();
}

std::int64_t Channel::heardFrame(std::int64_t heardClock) const noexcept {
    if (rip != nullptr) {
        return framesFromBytes(rip->position());
    }
    if (isDecoding()) {
        return wrapped(source_->position());
    }
    if (ended(heardClock)) {
        return source_->lengthFrames();
    }
    return wrapped(current_->anchorFrame() +
                   heardOfFeed(heardClock) * source_->sampleRate() / kMixRate);
}

std::int64_t Channel::lengthFrames(std::int64_t heard) const noexcept {
    if (rip != nullptr) {
        return framesFromBytes(rip->length());
    }
    const std::int64_t length = source_->lengthFrames();
    if (!source_->lengthIsEstimate()) {
        return length;
    }
    const std::int64_t margin = std::max(heard / kEstimateMarginDivisor + 1,
                                         kEstimateMarginSeconds * source_->sampleRate());
    return std::max(length, heard + margin);
}

} // namespace tovik::sound
