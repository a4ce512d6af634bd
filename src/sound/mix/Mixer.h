// SPDX-License-Identifier: GPL-3.0-or-later
// Sums the voices, applies the master volume, guards against clipping and feeds the capture and the
// device. `mix` runs in the device's callback: it never locks, allocates, touches a file or enters
// the kernel. The interface thread speaks to it through `post` and takes back what is not used any
// more through `takeReturned`. A device that queues about a second mixes ahead, and once more what
// a command changes.
#pragma once

#include "sound/mix/BlockStarts.h"
#include "sound/mix/Capture.h"
#include "sound/mix/ClipGuard.h"
#include "sound/mix/Command.h"
#include "sound/mix/LinearRamp.h"
#include "sound/mix/MissedTurn.h"
#include "sound/mix/Remix.h"
#include "sound/mix/ReturnsAhead.h"
#include "sound/mix/SpscQueue.h"
#include "sound/mix/Voice.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <utility>
#include <variant>

namespace tovik::sound {

class Mixer {
public:
    static constexpr std::size_t kMaxVoices = 64;

    /// What a thread does that finds another one mixing.
    enum class Patience { none, waits };

    /// One thread at a time is the mixer, for as long as it holds a turn that is its own.
    class Turn;

    /// Asks for the turn; see whether it is `mine`. Any thread.
    [[nodiscard]] Turn takeTurn() noexcept;

    // Interface thread ----------------------------------------------------------------------

    /// False when the queue is full.
    [[nodiscard]] bool post(const Command& command) noexcept { return commands_.push(command); }

    /// True when no posted command is left: what they did away with is not touched any more.
    [[nodiscard]] bool allTaken() const noexcept { return commands_.sizeApprox() == 0; }

    enum class Force { no, yes };

    /// Carries the posted commands out on the calling thread; for times when no callback runs.
    /// False while another thread is the mixer, which looks for commands itself, and while a device
    /// mixes ahead: that one is to be woken. By force also then, which is heard only behind all
    /// that is queued.
    bool drain(Force force = Force::no) noexcept;

    /// The callback has stopped for a while: carries the posted commands out, ends what was fading
    /// out, and lets the rest come back across a ramp.
    void fallSilent() noexcept;

    /// True and the next thing that was given back, if any.
    [[nodiscard]] bool takeReturned(Returned& returned) noexcept { return returned_.pop(returned); }

    // Any thread ----------------------------------------------------------------------------

    /// Frames handed to the device since the beginning and not taken back.
    [[nodiscard]] std::int64_t clock() const noexcept {
        return clock_.load(std::memory_order_acquire);
    }

    /// Something that was mixed ahead found too little to play; once there is more, the device is
    /// to be woken.
    [[nodiscard]] bool hungry() const noexcept { return hungry_.load(std::memory_order_relaxed); }

    // Device thread -------------------------------------------------------------------------

    /// Fills `interleaved`, which holds whole frames, with the next frames of the mix. While
    /// another thread has the turn, what sounded last fades away instead, and what comes after
    /// fades in.
    void mix(std::span<float> interleaved) noexcept;

    // Device thread, mixing ahead: may wait for another thread that is the mixer for a moment ---

    /// From now on the device mixes ahead, from the present clock on.
    void beginAhead() noexcept;

    /// The same as `mix` for whole blocks of kAheadBlockFrames, except that they may be taken back
    /// and that commands wait for `takeBack`.
    void mixAhead(std::span<float> interleaved) noexcept;

    /// The clock up to which all is heard: nothing before it will be mixed again.
    void settle(std::int64_t heard) noexcept;

    /// Where there are commands, or more to play where there was too little: goes back to the first
    /// block that begins at `earliest` or later, carries the commands out there, and returns the
    /// clock, from which on all has to be mixed again. Else nothing.
    [[nodiscard]] std::optional<std::int64_t> takeBack(std::int64_t earliest) noexcept;

    /// Goes back to the first block that begins at `heard` or later, and mixes ahead no more.
    void endAhead(std::int64_t heard) noexcept;

private:
    /// What changes while it is mixed, but for the voices.
    struct Place {
        LinearRamp master;
        LinearRamp output;
        bool pausing = false;
        ClipGuard clipGuard;
    };

    static constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::min();

    [[nodiscard]] std::span<Voice* const> voices() const noexcept {
        return std::span(voices_).first(voiceCount_);
    }

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
    void carryOut(const command::RemoveVoice& order, bool audible) noexcept;
    static void carryOut(const command::StartVoice& order, bool audible) noexcept;
    static void carryOut(const command::StartBehind& order, bool audible) noexcept;
    void carryOut(const command::StopVoice& order, bool audible) noexcept;
    void carryOut(const command::SwitchFeed& order, bool audible) noexcept;
    static void carryOut(const command::SetVolume& order, bool audible) noexcept;
    static void carryOut(const command::SetPan& order, bool audible) noexcept;
    static void carryOut(const command::Blend& order, bool audible) noexcept;
    static void carryOut(const command::SetBand& order, bool audible) noexcept;
    void carryOut(const command::SetMaster& order, bool audible) noexcept;
    void carryOut(const command::PauseOutput& order, bool audible) noexcept;
    void carryOut(const command::ResumeOutput& order, bool audible) noexcept;
    void carryOut(const command::SetCapture& order, bool audible) noexcept;
    static void carryOut(const command::LookAt& order, bool audible) noexcept;

    void mixBlocks(std::span<float> interleaved) noexcept;
    void mixBlock(std::span<float> block) noexcept;
    void addVoices(std::span<float> block) noexcept;
    void addVoice(Voice& voice, std::span<float> block, std::int64_t clock) noexcept;
    void forgetFollowers(const Voice& voice) noexcept;
    void applyOutputGain(std::span<float> block) noexcept;
    [[nodiscard]] bool sounding() const noexcept;
    void endFades() noexcept;
    void collectFreedFeeds(Voice& voice) noexcept;
    void giveBack(const Returned& returned) noexcept;

    void keepPlace(std::size_t slot) noexcept;
    void goBackTo(std::int64_t clock) noexcept;
    void settleTo(std::int64_t heard) noexcept;
    void noteStarving(std::int64_t start) noexcept;
    [[nodiscard]] bool mayStillHunger(std::int64_t earliest) noexcept;

    [[nodiscard]] bool silentByPause() const noexcept { return pausing_ && output_.settled(); }

    static constexpr std::size_t kCommandCapacity = 1024;
    /// Each command gives back one thing at most, and each voice holds three more.
    static constexpr std::size_t kReturnCapacity = 4096;

    static_assert(std::atomic<bool>::is_always_lock_free);
    static_assert(std::atomic<std::int64_t>::is_always_lock_free);

    SpscQueue<Command, kCommandCapacity> commands_;
    SpscQueue<Returned, kReturnCapacity> returned_;
    std::atomic<bool> taken_ = false;
    std::atomic<std::int64_t> clock_ = 0;
    std::atomic<bool> hungry_ = false;

    std::array<Voice*, kMaxVoices> voices_{};
    std::size_t voiceCount_ = 0;
    LinearRamp master_{1.0F};
    LinearRamp output_{1.0F}; ///< the ramp of pause and resume
    bool pausing_ = false;
    ClipGuard clipGuard_;
    Capture capture_;
    std::array<float, kMaxBlockFrames * 2> scratch_{};

    MissedTurn missedTurn_;        ///< of the device's thread, whoever has the turn
    std::size_t missedFrames_ = 0; ///< the same

    bool ahead_ = false; ///< a device mixes ahead
    BlockStarts starts_;
    std::array<Place, kCheckpoints> places_{};
    ReturnsAhead freed_;
    std::int64_t starvedFrom_ = kNever; ///< the first block that found too little ...
    std::int64_t starvedTo_ = kNever;   ///< ... and the last one
};

class Mixer::Turn {
public:
    Turn(std::atomic<bool>& taken, Patience patience) noexcept;
    ~Turn();
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

    [[nodiscard]] bool mine() const noexcept { return mine_; }

private:
    std::atomic<bool>& taken_;
    bool mine_;
};

inline Mixer::Turn Mixer::takeTurn() noexcept {
    return {taken_, Patience::none};
}

} // namespace tovik::sound
