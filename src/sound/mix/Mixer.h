// SPDX-License-Identifier: GPL-3.0-or-later
// Sums the voices, applies the master volume, guards against clipping and feeds the capture and the
// device. `mix` runs in the device's callback: it never locks, allocates, touches a file or enters
// the kernel. The interface thread speaks to it through `post` and takes back what is not used any
// more through `takeReturned`.
#pragma once

#include "sound/mix/ClipGuard.h"
#include "sound/mix/Command.h"
#include "sound/mix/LinearRamp.h"
#include "sound/mix/MissedTurn.h"
#include "sound/mix/SpscQueue.h"
#include "sound/mix/Voice.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>
#include <variant>

namespace tovik::sound {

class Mixer {
public:
    static constexpr std::size_t kMaxVoices = 64;

    /// One thread at a time is the mixer, for as long as it holds a turn that is its own. The other
    /// one goes without, it never waits.
    class Turn;

    /// Asks for the turn; see whether it is `mine`. Any thread.
    [[nodiscard]] Turn takeTurn() noexcept;

    // Interface thread ----------------------------------------------------------------------

    /// False when the queue is full.
    [[nodiscard]] bool post(const Command& command) noexcept { return commands_.push(command); }

    /// True when no posted command is left: what they did away with is not touched any more.
    [[nodiscard]] bool allTaken() const noexcept { return commands_.sizeApprox() == 0; }

    /// Carries the posted commands out on the calling thread; for times when no callback runs. Does
    /// nothing when a callback is mixing after all.
    void drain() noexcept;

    /// The callback has stopped for a while: carries the posted commands out, ends what was fading
    /// out, and lets the rest come back across a ramp.
    void fallSilent() noexcept;

    /// True and the next thing that was given back, if any.
    [[nodiscard]] bool takeReturned(Returned& returned) noexcept { return returned_.pop(returned); }

    // Any thread ----------------------------------------------------------------------------

    /// Frames handed to the device since the beginning.
    [[nodiscard]] std::int64_t clock() const noexcept {
        return clock_.load(std::memory_order_acquire);
    }

    // Device thread -------------------------------------------------------------------------

    /// Fills `interleaved` with the next frames of the mix. While another thread has the turn, what
    /// sounded last fades away instead, and what comes after fades in.
    void mix(std::span<float> interleaved) noexcept;

private:
    void carryOutCommands(bool sounding) noexcept;

    /// Like std::visit, which could throw for a variant without a value: a command always has one.
    template <typename... Orders>
    void obey(const std::variant<Orders...>& command, bool audible) noexcept {
        const auto obeyOne = [&](const auto* order) {
            if (order != nullptr) {
                carryOut(*order, audible);
            }
        };
        (obeyOne(std::get_if<Orders>(&command)), ...);
    }

    void carryOut(const command::AddVoice& order, bool audible) noexcept;
    static void carryOut(const command::RemoveVoice& order, bool audible) noexcept;
    static void carryOut(const command::StartVoice& order, bool audible) noexcept;
    void carryOut(const command::StopVoice& order, bool audible) noexcept;
    void carryOut(const command::SwitchFeed& order, bool audible) noexcept;
    static void carryOut(const command::SetVolume& order, bool audible) noexcept;
    static void carryOut(const command::SetPan& order, bool audible) noexcept;
    static void carryOut(const command::SetBand& order, bool audible) noexcept;
    void carryOut(const command::SetMaster& order, bool audible) noexcept;
    void carryOut(const command::PauseOutput& order, bool audible) noexcept;
    void carryOut(const command::ResumeOutput& order, bool audible) noexcept;
    void carryOut(const command::SetCapture& order, bool audible) noexcept;

    void mixBlock(std::span<float> block) noexcept;
    void addVoices(std::span<float> block) noexcept;
    void applyOutputGain(std::span<float> block) noexcept;
    [[nodiscard]] bool sounding() const noexcept;
    void endFades() noexcept;
    void giveBackFreedFeeds(Voice& voice) noexcept;
    void giveBackLeftVoices() noexcept;
    void giveBack(const Returned& returned) noexcept;

    [[nodiscard]] bool silentByPause() const noexcept { return pausing_ && output_.settled(); }

    static constexpr std::size_t kCommandCapacity = 1024;
    /// Each command gives back one thing at most, and each voice holds three more.
    static constexpr std::size_t kReturnCapacity = 4096;

    SpscQueue<Command, kCommandCapacity> commands_;
    SpscQueue<Returned, kReturnCapacity> returned_;
    std::atomic<bool> taken_ = false;
    std::atomic<std::int64_t> clock_ = 0;

    std::array<Voice*, kMaxVoices> voices_{};
    std::size_t voiceCount_ = 0;
    LinearRamp master_{1.0F};
    LinearRamp output_{1.0F}; ///< the ramp of pause and resume
    bool pausing_ = false;
    FrameRing* capture_ = nullptr;
    ClipGuard clipGuard_;
    MissedTurn missedTurn_; ///< of the device's thread, whoever has the turn
    std::array<float, kMaxBlockFrames * 2> scratch_{};
};

class Mixer::Turn {
public:
    explicit Turn(std::atomic<bool>& taken) noexcept
        : taken_(taken), mine_(!taken.exchange(true, std::memory_order_acquire)) {}

    ~Turn() {
        if (mine_) {
            taken_.store(false, std::memory_order_release);
        }
    }

    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

    [[nodiscard]] bool mine() const noexcept { return mine_; }

private:
    std::atomic<bool>& taken_;
    bool mine_;
};

inline Mixer::Turn Mixer::takeTurn() noexcept {
    return Turn(taken_);
}

} // namespace tovik::sound
