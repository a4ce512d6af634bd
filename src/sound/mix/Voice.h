// SPDX-License-Identifier: GPL-3.0-or-later
// One channel as the mixer sees it: feed, level, bands, volume and pan. Made by the interface
// thread, then used by the mixer alone, except for the part that reports.
#pragma once

#include "sound/mix/EqualizerBank.h"
#include "sound/mix/Feed.h"
#include "sound/mix/FeedLine.h"
#include "sound/mix/GainStage.h"
#include "sound/mix/Remix.h"
#include "sound/mix/SpectrumTap.h"
#include "sound/mix/VoiceHistory.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <type_traits>
#include <vector>

namespace tovik::sound {

class Voice {
public:
    /// Starts with `feed`, which the maker keeps alive until the mixer gives it back.
    explicit Voice(Feed& feed, Remix remix = Remix::never);

    // Any thread ----------------------------------------------------------------------------

    /// What was mixed of it at the mixer's clock `clock`, for times that may still be heard.
    [[nodiscard]] std::optional<HeardBlock> heard(std::int64_t clock) const noexcept {
        return history_.at(clock);
    }

    /// Volume and pan as the mixer has them, on their way when a slide runs.
    [[nodiscard]] float volume() const noexcept { return volume_.load(std::memory_order_relaxed); }

    [[nodiscard]] float pan() const noexcept { return pan_.load(std::memory_order_relaxed); }

    [[nodiscard]] SpectrumTap& spectrumTap() noexcept { return tap_; }

    // Mixer ---------------------------------------------------------------------------------

    /// Starts without a ramp only where the sound itself begins: at the head of the channel.
    void start() noexcept;

    /// Waits for the end of `before`, which the mixer has, too; told to start, it starts at once.
    void startBehind(const Voice& before) noexcept;

    /// Waits no more where it waits for `before`.
    void forget(const Voice& before) noexcept;

    /// The frame of the block at which the voice that it waits for has ended: it is to be started
    /// there. Nothing where it does not wait, or not in this block. After all others were rendered.
    [[nodiscard]] std::optional<std::size_t> joinsAt() const noexcept {
        return at_.behind != nullptr ? at_.behind->endFrame_ : std::nullopt;
    }

    /// `audible` is false while the output is silent; then everything takes effect at once.
    void stop(bool audible) noexcept;
    void leave(bool audible) noexcept;

    /// Goes on with `feed`. A voice that is being stopped does so when it has fallen silent.
    void switchFeed(Feed& feed, bool audible) noexcept;

    /// The output has fallen silent: whatever was fading out is over.
    void endFades() noexcept;

    /// Something of it was heard, and goes on.
    [[nodiscard]] bool sounding() const noexcept {
        return at_.state != State::idle && !left() && !at_.line.untouched() && !ended();
    }

    void setVolume(float volume, std::int32_t frames) noexcept;
    void setPan(float pan, std::int32_t frames) noexcept;
    void blend(bool in, std::int32_t frames) noexcept;
    void setBand(int band, const BandCoefficients& coefficients) noexcept;

    /// True when it is to be given back.
    [[nodiscard]] bool left() const noexcept { return at_.state == State::left; }

    /// Fills `block` (at most kMaxBlockFrames frames) with what it adds to the mix and returns
    /// true; false, with `block` untouched, when it is silent. `clock` is the mixer's.
    [[nodiscard]] bool render(std::span<float> block, std::int64_t clock) noexcept;

    /// It plays and found too little in the last block.
    [[nodiscard]] bool starved() const noexcept {
        return at_.starved && at_.state == State::playing;
    }

    /// It was starved, and by now there is more to play, or it is known that nothing comes.
    [[nodiscard]] bool fedAgain() const noexcept {
        return starved() && (!at_.line.exhausted() || at_.line.complete());
    }

    /// The next feed that is not used any more, or null.
    [[nodiscard]] Feed* takeFreedFeed() noexcept { return at_.line.takeFreed(); }

    // Going back: for voices made with Remix::possible ----------------------------------------

    /// Keeps where it stands as checkpoint `slot`, below kCheckpoints.
    void keep(std::size_t slot) noexcept { checkpoints_[slot] = at_; }

    /// Stands where it stood at checkpoint `slot`.
    void goBack(std::size_t slot) noexcept;

    /// What was taken from the feeds before checkpoint `slot` is not needed any more.
    void release(std::size_t slot) const noexcept { checkpoints_[slot].line.release(); }

    [[nodiscard]] bool leftBy(std::size_t slot) const noexcept {
        return checkpoints_[slot].state == State::left;
    }

    /// The same up to where it stands now.
    void release() const noexcept { at_.line.release(); }

private:
    enum class State { idle, playing, stopping, leaving, left };

    /// All that changes while it is mixed: copied whole to have a place to go back to.
    struct Place {
        explicit Place(Feed& feed) noexcept : line(feed) {}

        State state = State::idle;
        bool starved = false;
        std::uint32_t level = 0;
        FeedLine line;
        std::array<float, 2> lastFrame{}; ///< what the feed gave last
        EqualizerBank bands;
        GainStage gain;
        std::size_t tailFrames = 0;    ///< how long the bands may ring on after the end
        std::size_t noted = 0;         ///< blocks in the history
        std::size_t tapped = 0;        ///< frames noted for the spectrum
        const Voice* behind = nullptr; ///< starts where that one ends
    };

    static_assert(std::is_trivially_copyable_v<Place>);

    [[nodiscard]] bool play(std::span<float> block, HeardBlock& facts) noexcept;
    void readFeed(std::span<float> block, HeardBlock& facts) noexcept;
    void bridgeGap(std::span<float> block, std::size_t frames) noexcept;
    [[nodiscard]] bool renderTail(std::span<float> block) noexcept;

    [[nodiscard]] bool ended() const noexcept { return at_.line.drained() && at_.tailFrames == 0; }

    void fadeIn() noexcept;
    void finishFade() noexcept;
    void report() noexcept;

    Place at_;
    std::vector<Place> checkpoints_;
    std::optional<std::size_t> endFrame_; ///< of the block rendered last: all was given before it
    SpectrumTap tap_;
    VoiceHistory history_;
    std::atomic<float> volume_ = 1.0F;
    std::atomic<float> pan_ = 0.0F;
};

} // namespace tovik::sound
