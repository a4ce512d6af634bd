// SPDX-License-Identifier: GPL-3.0-or-later
// One channel as the mixer sees it: feed, level, bands, volume and pan. Made by the interface
// thread, then used by the mixer alone, except for the part that reports.
#pragma once

#include "sound/mix/EqualizerBank.h"
#include "sound/mix/Feed.h"
#include "sound/mix/FeedLine.h"
#include "sound/mix/GainStage.h"
#include "sound/mix/SpectrumTap.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>

namespace tovik::sound {

class Voice {
public:
    /// Starts with `feed`, which the maker keeps alive until the mixer gives it back.
    explicit Voice(Feed& feed) noexcept : line_(feed) {}

    // Any thread ----------------------------------------------------------------------------

    /// Loudest samples of the last block, packed as BASS_ChannelGetLevel returns them.
    [[nodiscard]] std::uint32_t level() const noexcept {
        return level_.load(std::memory_order_relaxed);
    }

    /// The current volume and pan, on their way when a slide runs.
    [[nodiscard]] float volume() const noexcept { return volume_.load(std::memory_order_relaxed); }

    [[nodiscard]] float pan() const noexcept { return pan_.load(std::memory_order_relaxed); }

    /// True while the mixer finds nothing to play although the end has not come.
    [[nodiscard]] bool starved() const noexcept { return starved_.load(std::memory_order_relaxed); }

    [[nodiscard]] SpectrumTap& spectrumTap() noexcept { return tap_; }

    // Mixer ---------------------------------------------------------------------------------

    /// Starts without a ramp only where the sound itself begins: at the head of the channel.
    void start() noexcept;

    /// `audible` is false while the output is silent; then everything takes effect at once.
    void stop(bool audible) noexcept;
    void leave(bool audible) noexcept;

    /// Goes on with `feed`. A voice that is being stopped does so when it has fallen silent.
    void switchFeed(Feed& feed, bool audible) noexcept;

    /// The output has fallen silent: whatever was fading out is over.
    void endFades() noexcept;

    /// Something of it was heard, and goes on.
    [[nodiscard]] bool sounding() const noexcept {
        return state_ != State::idle && state_ != State::left && !line_.untouched() && !ended();
    }

    void setVolume(float volume, std::int32_t frames) noexcept;
    void setPan(float pan, std::int32_t frames) noexcept;
    void setBand(int band, const BandCoefficients& coefficients) noexcept;

    /// True when it is to be given back.
    [[nodiscard]] bool left() const noexcept { return state_ == State::left; }

    /// Fills `block` (at most kMaxBlockFrames frames) with what it adds to the mix and returns
    /// true; false, with `block` untouched, when it is silent. `clock` as for Feed::read.
    [[nodiscard]] bool render(std::span<float> block, std::int64_t clock) noexcept;

    /// The next feed that is not used any more, or null.
    [[nodiscard]] Feed* takeFreedFeed() noexcept { return line_.takeFreed(); }

private:
    enum class State { idle, playing, stopping, leaving, left };

    void readFeed(std::span<float> block, std::int64_t clock) noexcept;
    void bridgeGap(std::span<float> block, std::size_t frames) noexcept;
    [[nodiscard]] bool renderTail(std::span<float> block) noexcept;

    [[nodiscard]] bool ended() const noexcept { return line_.drained() && tailFrames_ == 0; }

    void fadeIn() noexcept;
    void finishFade() noexcept;

    State state_ = State::idle;
    FeedLine line_;
    std::array<float, 2> lastFrame_{}; ///< what the feed gave last
    EqualizerBank bands_;
    GainStage gain_;
    std::size_t tailFrames_ = 0; ///< how long the bands may ring on after the end
    SpectrumTap tap_;

    std::atomic<std::uint32_t> level_ = 0;
    std::atomic<float> volume_ = 1.0F;
    std::atomic<float> pan_ = 0.0F;
    std::atomic<bool> starved_ = false;
};

} // namespace tovik::sound
