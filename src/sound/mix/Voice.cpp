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

void Voice::fadeIn() noexcept {
    gain_.fadeTo(0.0F, 0);
    gain_.fadeTo(1.0F, line_.atHead() ? 0 : kRampFrames);
}

void Voice::start() noexcept {
    if (state_ == State::idle) {
        fadeIn();
    } else if (state_ == State::stopping) {
        gain_.fadeTo(1.0F, kRampFrames);
        line_.crossfade();
    }
    state_ = State::playing;
}

void Voice::stop(bool audible) noexcept {
    if (state_ != State::playing) {
        return;
    }
    state_ = State::stopping;
    gain_.fadeTo(0.0F, audible ? kRampFrames : 0);
    if (!audible) {
        finishFade();
    }
}

void Voice::leave(bool audible) noexcept {
    const bool sounds = audible && (state_ == State::playing || state_ == State::stopping);
    state_ = sounds ? State::leaving : State::left;
    gain_.fadeTo(0.0F, sounds ? kRampFrames : 0);
}

void Voice::switchFeed(Feed& feed, bool audible) noexcept {
    line_.queue(feed);
    if (audible && state_ == State::stopping) {
        return;
    }
    const bool silent = line_.untouched() || ended();
    if (audible && state_ == State::playing && !silent) {
        line_.crossfade();
        return;
    }
    line_.jump();
    if (state_ == State::playing) {
        fadeIn();
    }
}

void Voice::endFades() noexcept {
    if (state_ == State::stopping || state_ == State::leaving) {
        gain_.fadeTo(0.0F, 0);
        finishFade();
    }
    line_.jump();
}

void Voice::setVolume(float volume, std::int32_t frames) noexcept {
    gain_.volumeTo(volume, state_ == State::idle ? 0 : frames);
    volume_.store(gain_.volume(), std::memory_order_relaxed);
}

void Voice::setPan(float pan, std::int32_t frames) noexcept {
    gain_.panTo(pan, state_ == State::idle ? 0 : frames);
    pan_.store(gain_.pan(), std::memory_order_relaxed);
}

void Voice::setBand(int band, const BandCoefficients& coefficients) noexcept {
    bands_.setBand(band, coefficients);
    if (state_ == State::idle) {
        bands_.reset();
    }
}

void Voice::finishFade() noexcept {
    if (state_ == State::leaving) {
        state_ = State::left;
    } else if (state_ == State::stopping) {
        state_ = State::idle;
        line_.jump();
        bands_.reset();
        level_.store(0, std::memory_order_relaxed);
    }
}

void Voice::readFeed(std::span<float> block, std::int64_t clock) noexcept {
    // Asked before: what is written between the two belongs to the next block.
    const bool complete = line_.complete();
    const std::size_t frames = line_.read(block, clock);
    const bool starved = frames < framesOf(block) && !complete;
    if (starved) {
        bridgeGap(block, frames);
    } else if (starved_.load(std::memory_order_relaxed) && state_ == State::playing) {
        gain_.fadeTo(1.0F, kRampFrames);
    }
    starved_.store(starved, std::memory_order_relaxed);
    std::copy_n(block.last(2).begin(), 2, lastFrame_.begin());
}

/// The last frame is held while it fades away, and what comes later fades in.
void Voice::bridgeGap(std::span<float> block, std::size_t frames) noexcept {
    if (state_ == State::playing && !starved_.load(std::memory_order_relaxed)) {
        gain_.fadeTo(0.0F, kRampFrames);
    }
    if (gain_.faded() || line_.crossfading()) {
        return;
    }
    const std::span<const float> held =
        frames > 0 ? block.subspan((frames - 1) * 2, 2) : std::span<const float>(lastFrame_);
    for (std::size_t i = frames * 2; i + 1 < block.size(); i += 2) {
        block[i] = held[0];
        block[i + 1] = held[1];
    }
}

bool Voice::renderTail(std::span<float> block) noexcept {
    level_.store(0, std::memory_order_relaxed);
    if (tailFrames_ == 0) {
        finishFade();
        return false;
    }
    std::ranges::fill(block, 0.0F);
    bands_.process(block);
    gain_.process(block);
    tailFrames_ -= std::min(tailFrames_, framesOf(block));
    return true;
}

bool Voice::render(std::span<float> block, std::int64_t clock) noexcept {
    if (state_ == State::idle || state_ == State::left) {
        return false;
    }
    if (line_.drained()) {
        return renderTail(block);
    }
    readFeed(block, clock);
    if (!starved()) {
        // A gap that a slow disk leaves is no silence of the track: the level stays.
        level_.store(packLevel(measureLevel(block)), std::memory_order_relaxed);
    }
    tap_.write(block);
    bands_.process(block);
    gain_.process(block);
    tailFrames_ = bands_.neutral() ? 0 : kTailFrames;
    volume_.store(gain_.volume(), std::memory_order_relaxed);
    pan_.store(gain_.pan(), std::memory_order_relaxed);
    if (gain_.faded()) {
        finishFade();
    }
    return true;
}

} // namespace tovik::sound
