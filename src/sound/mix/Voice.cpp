// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/Voice.h"

#include "sound/mix/LevelMeter.h"

#include <algorithm>

namespace tovik::sound {

namespace {

/// The bands ring on for at most this long behind the last sample: 50 ms.
constexpr std::size_t kTailFrames = 2205;

std::size_t framesOf(std::span<const float> block) noexcept {
    return block.size() / 2;
}

} // namespace

Voice::Voice(Feed& feed, Remix remix)
    : at_(feed),
      tap_(remix == Remix::possible ? SpectrumTap::kAheadCapacity : SpectrumTap::kCapacity) {
    if (remix == Remix::possible) {
        checkpoints_.assign(kCheckpoints, at_);
    }
}

void Voice::fadeIn() noexcept {
    at_.gain.fadeTo(0.0F, 0);
    at_.gain.fadeTo(1.0F, at_.line.atHead() ? 0 : kRampFrames);
}

void Voice::start() noexcept {
    at_.behind = nullptr;
    if (at_.state == State::idle) {
        fadeIn();
    } else if (at_.state == State::stopping) {
        at_.gain.fadeTo(1.0F, kRampFrames);
        at_.line.crossfade();
    }
    at_.state = State::playing;
}

void Voice::startBehind(const Voice& before) noexcept {
    if (at_.state == State::idle) {
        at_.behind = &before;
    }
}

void Voice::forget(const Voice& before) noexcept {
    if (at_.behind == &before) {
        at_.behind = nullptr;
    }
}

void Voice::stop(bool audible) noexcept {
    at_.behind = nullptr;
    if (at_.state != State::playing) {
        return;
    }
    at_.state = State::stopping;
    at_.gain.fadeTo(0.0F, audible ? kRampFrames : 0);
    if (!audible) {
        finishFade();
    }
}

void Voice::leave(bool audible) noexcept {
    at_.behind = nullptr;
    const bool sounds = audible && (at_.state == State::playing || at_.state == State::stopping);
    at_.state = sounds ? State::leaving : State::left;
    at_.gain.fadeTo(0.0F, sounds ? kRampFrames : 0);
}

void Voice::switchFeed(Feed& feed, bool audible) noexcept {
    at_.line.queue(feed);
    if (audible && at_.state == State::stopping) {
        return;
    }
    const bool silent = at_.line.untouched() || ended();
    if (audible && at_.state == State::playing && !silent) {
        at_.line.crossfade();
        return;
    }
    at_.line.jump();
    at_.lastFrame = {};
    if (at_.state == State::playing) {
        fadeIn();
    }
}

void Voice::endFades() noexcept {
    if (at_.state == State::stopping || at_.state == State::leaving) {
        at_.gain.fadeTo(0.0F, 0);
        finishFade();
    }
    at_.line.jump();
}

void Voice::report() noexcept {
    volume_.store(at_.gain.volume(), std::memory_order_relaxed);
    pan_.store(at_.gain.pan(), std::memory_order_relaxed);
}

void Voice::setVolume(float volume, std::int32_t frames) noexcept {
    at_.gain.volumeTo(volume, at_.state == State::idle ? 0 : frames);
    report();
}

void Voice::setPan(float pan, std::int32_t frames) noexcept {
    at_.gain.panTo(pan, at_.state == State::idle ? 0 : frames);
    report();
}

void Voice::blend(bool in, std::int32_t frames) noexcept {
    if (in) {
        at_.gain.blendTo(0.0F, 0);
    }
    at_.gain.blendTo(in ? 1.0F : 0.0F, frames);
}

void Voice::setBand(int band, const BandCoefficients& coefficients) noexcept {
    at_.bands.setBand(band, coefficients);
    if (at_.state == State::idle) {
        at_.bands.reset();
    }
}

void Voice::finishFade() noexcept {
    if (at_.state == State::leaving) {
        at_.state = State::left;
    } else if (at_.state == State::stopping) {
        at_.state = State::idle;
        at_.line.jump();
        at_.lastFrame = {}; // a feed that is still empty has nothing to hold
        at_.bands.reset();
        at_.level = 0;
    }
}

void Voice::readFeed(std::span<float> block, HeardBlock& facts) noexcept {
    // Asked before: what is written between the two belongs to the next block.
    const bool complete = at_.line.complete();
    const std::size_t frames = at_.line.read(block);
    facts.given = static_cast<std::int32_t>(frames);
    const bool starved = frames < framesOf(block) && !complete;
    if (starved) {
        bridgeGap(block, frames);
    } else if (at_.starved && at_.state == State::playing) {
        at_.gain.fadeTo(1.0F, kRampFrames);
    }
    at_.starved = starved;
    std::copy_n(block.last(2).begin(), 2, at_.lastFrame.begin());
}

/// The last frame is held while it fades away, and what comes later fades in.
void Voice::bridgeGap(std::span<float> block, std::size_t frames) noexcept {
    if (at_.state == State::playing && !at_.starved) {
        at_.gain.fadeTo(0.0F, kRampFrames);
    }
    if (at_.gain.faded() || at_.line.crossfading()) {
        return;
    }
    const std::span<const float> held =
        frames > 0 ? block.subspan((frames - 1) * 2, 2) : std::span<const float>(at_.lastFrame);
    for (std::size_t i = frames * 2; i + 1 < block.size(); i += 2) {
        block[i] = held[0];
        block[i + 1] = held[1];
    }
}

bool Voice::renderTail(std::span<float> block) noexcept {
    at_.level = 0;
    if (at_.tailFrames == 0) {
        finishFade();
        return false;
    }
    std::ranges::fill(block, 0.0F);
    at_.bands.process(block);
    at_.gain.process(block);
    at_.tailFrames -= std::min(at_.tailFrames, framesOf(block));
    return true;
}

bool Voice::play(std::span<float> block, HeardBlock& facts) noexcept {
    if (at_.line.drained()) {
        endFrame_ = 0;
        return renderTail(block);
    }
    readFeed(block, facts);
    if (at_.line.drained()) {
        endFrame_ = static_cast<std::size_t>(facts.given);
    }
    if (!at_.starved) {
        // A gap that a slow disk leaves is no silence of the track: the level stays.
        at_.level = packLevel(measureLevel(block));
    }
    at_.tapped = tap_.write(at_.tapped, block);
    at_.bands.process(block);
    at_.gain.process(block);
    at_.tailFrames = at_.bands.neutral() ? 0 : kTailFrames;
    report();
    if (at_.gain.faded()) {
        finishFade();
    }
    return true;
}

bool Voice::render(std::span<float> block, std::int64_t clock) noexcept {
    endFrame_.reset();
    if (at_.state == State::idle || left()) {
        return false;
    }
    HeardBlock facts{.clock = clock,
                     .taken = at_.line.takenFrames(),
                     .tapped = static_cast<std::int64_t>(at_.tapped),
                     .frames = static_cast<std::int32_t>(framesOf(block)),
                     .feed = at_.line.feedNumber()};
    const bool sounds = play(block, facts);
    facts.level = at_.level;
    facts.volume = at_.gain.volume();
    facts.pan = at_.gain.pan();
    facts.starved = at_.starved;
    history_.note(facts);
    ++at_.noted;
    return sounds;
}

void Voice::goBack(std::size_t slot) noexcept {
    at_ = checkpoints_[slot];
    at_.line.goBack();
    history_.goBack(at_.noted);
    report();
}

} // namespace tovik::sound
