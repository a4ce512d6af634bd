// SPDX-License-Identifier: GPL-3.0-or-later
// Mixing ahead of what is heard, and once more.
//
// The device queues about a second. A command must be heard at once all the same, so the mixer goes
// back to the first block that can still be changed, carries the command out there, and everything
// behind is mixed again. At the beginning of each block it keeps a copy of all that changes while
// it mixes, and the feeds keep their samples until what was made of them is heard. Since time only
// goes on, commands never have to be taken back: nobody goes back before the place of the last one.
#include "sound/mix/Mixer.h"

#include "sound/mix/DenormalGuard.h"

#include <algorithm>
#include <cassert>

namespace tovik::sound {

namespace {

constexpr std::int64_t kBlock = kAheadBlockFrames;

} // namespace

void Mixer::beginAhead() noexcept {
    const Turn turn(taken_, Patience::waits);
    starts_.clear();
    starvedFrom_ = starvedTo_ = kNever;
    carryOutCommands(false);
    ahead_ = true;
}

void Mixer::mixAhead(std::span<float> interleaved) noexcept {
    assert(interleaved.size() % (2 * kAheadBlockFrames) == 0);
    const Turn turn(taken_, Patience::waits);
    const DenormalGuard denormals;
    while (interleaved.size() >= 2 * kAheadBlockFrames) {
        const std::int64_t start = clock();
        keepPlace(starts_.begin(start));
        mixBlocks(interleaved.first(2 * kAheadBlockFrames));
        noteStarving(start);
        interleaved = interleaved.subspan(2 * kAheadBlockFrames);
    }
}

void Mixer::settle(std::int64_t heard) noexcept {
    const Turn turn(taken_, Patience::waits);
    settleTo(heard);
}

std::optional<std::int64_t> Mixer::takeBack(std::int64_t earliest) noexcept {
    const Turn turn(taken_, Patience::waits);
    const bool ordered = !allTaken();
    if (!ordered && !mayStillHunger(earliest)) {
        return std::nullopt;
    }
    goBackTo(ordered ? earliest : std::max(earliest, starvedFrom_));
    carryOutCommands(true);
    return clock();
}

void Mixer::endAhead(std::int64_t heard) noexcept {
    do {
        const Turn turn(taken_, Patience::waits);
        if (ahead_) {
            goBackTo(heard);
            ahead_ = false;
        }
        starts_.clear();
        carryOutCommands(false);
        settleTo(clock());
    } while (!allTaken());
}

void Mixer::keepPlace(std::size_t slot) noexcept {
    places_[slot] = {master_, output_, pausing_, clipGuard_};
    for (Voice* voice : voices()) {
        voice->keep(slot);
    }
}

/// To the first block that begins at `clock` or later, or not at all.
void Mixer::goBackTo(std::int64_t clock) noexcept {
    const auto slot = starts_.atOrAfter(clock);
    if (!slot) {
        return;
    }
    const std::int64_t start = starts_.clockOf(*slot);
    master_ = places_[*slot].master;
    output_ = places_[*slot].output;
    pausing_ = places_[*slot].pausing;
    clipGuard_ = places_[*slot].clipGuard;
    for (Voice* voice : voices()) {
        voice->goBack(*slot);
    }
    freed_.goBack(start);
    starts_.dropFrom(*slot);
    if (starvedTo_ >= start) {
        starvedTo_ = starvedFrom_ < start ? start - kBlock : kNever;
        starvedFrom_ = starvedFrom_ < start ? starvedFrom_ : kNever;
        hungry_.store(starvedTo_ != kNever, std::memory_order_relaxed);
    }
    clock_.store(start, std::memory_order_release);
}

void Mixer::settleTo(std::int64_t heard) noexcept {
    const bool all = starts_.empty();
    const std::size_t slot = all ? 0 : starts_.atOrBefore(heard);
    const std::int64_t settled = all ? clock() : starts_.clockOf(slot);
    capture_.settle(settled);
    freed_.settle(settled, [this](Feed* feed) { giveBack({.voice = nullptr, .feed = feed}); });
    for (std::size_t v = 0; v < voiceCount_;) {
        Voice* voice = voices_[v];
        if (all ? voice->left() : voice->leftBy(slot)) {
            voices_[v] = voices_[--voiceCount_];
            giveBack({.voice = voice, .feed = nullptr});
            continue;
        }
        if (all) {
            voice->release();
        } else {
            voice->release(slot);
        }
        ++v;
    }
}

void Mixer::noteStarving(std::int64_t start) noexcept {
    if (std::ranges::any_of(voices(), [](const Voice* voice) { return voice->starved(); })) {
        starvedFrom_ = starvedFrom_ == kNever ? start : starvedFrom_;
        starvedTo_ = start;
        hungry_.store(true, std::memory_order_relaxed);
    }
}

/// True when a block that may be mixed again from `earliest` on found too little, and would not
/// now.
bool Mixer::mayStillHunger(std::int64_t earliest) noexcept {
    if (starvedTo_ == kNever) {
        return false;
    }
    if (starvedTo_ < earliest) { // that was heard, or is about to be
        starvedFrom_ = starvedTo_ = kNever;
        hungry_.store(false, std::memory_order_relaxed);
        return false;
    }
    return std::ranges::any_of(voices(), [](const Voice* voice) { return voice->fedAgain(); });
}

} // namespace tovik::sound
