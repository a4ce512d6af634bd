// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/Mixer.h"

#include "sound/mix/DenormalGuard.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <thread>

namespace tovik::sound {

namespace {

std::int64_t framesOf(std::span<const float> block) noexcept {
    return static_cast<std::int64_t>(block.size() / 2);
}

} // namespace

Mixer::Turn::Turn(std::atomic<bool>& taken, Patience patience) noexcept
    : taken_(taken), mine_(!taken.exchange(true, std::memory_order_acq_rel)) {
    while (!mine_ && patience == Patience::waits) {
        std::this_thread::yield(); // the other one is soon done
        mine_ = !taken.exchange(true, std::memory_order_acq_rel);
    }
}

Mixer::Turn::~Turn() {
    if (mine_) {
        // An exchange, not a store: whoever asked in vain has posted its command before, and this
        // thread sees that command when it looks once more.
        taken_.exchange(false, std::memory_order_acq_rel);
    }
}

bool Mixer::drain(Force force) noexcept {
    do {
        const Turn turn(taken_, Patience::none);
        if (!turn.mine()) {
            return false; // who has it looks for commands once more, unless it mixes ahead
        }
        if (ahead_ && force == Force::no) {
            return false;
        }
        carryOutCommands(false);
        settleTo(clock());
    } while (!allTaken());
    return true;
}

void Mixer::fallSilent() noexcept {
    do {
        const Turn turn(taken_, Patience::waits);
        ahead_ = false;
        starts_.clear();
        carryOutCommands(false);
        endFades();
        if (!pausing_ && sounding()) {
            output_.jumpTo(0.0F);
            output_.rampTo(1.0F, kRampFrames);
        }
        settleTo(clock());
    } while (!allTaken());
}

bool Mixer::sounding() const noexcept {
    return std::ranges::any_of(voices(), [](const Voice* voice) { return voice->sounding(); });
}

void Mixer::endFades() noexcept {
    for (Voice* voice : voices()) {
        voice->endFades();
        collectFreedFeeds(*voice);
    }
}

void Mixer::mix(std::span<float> interleaved) noexcept {
    assert(interleaved.size() % 2 == 0);
    const Turn turn(taken_, Patience::none);
    const DenormalGuard denormals;
    if (!turn.mine()) {
        missedTurn_.bridge(interleaved);
        missedFrames_ += static_cast<std::size_t>(framesOf(interleaved));
        clock_.fetch_add(framesOf(interleaved), std::memory_order_release);
        return;
    }
    capture_.leaveOut(std::exchange(missedFrames_, 0));
    carryOutCommands(true);
    mixBlocks(interleaved);
    missedTurn_.pass(interleaved, sounding());
    settleTo(clock());
}

void Mixer::mixBlocks(std::span<float> interleaved) noexcept {
    while (interleaved.size() >= 2) {
        std::size_t frames = std::min(interleaved.size() / 2, kMaxBlockFrames);
        if (!output_.settled()) {
            // A pause takes nothing from the feeds once it is silent: stop on the ramp's last
            // frame.
            frames = std::min(frames, static_cast<std::size_t>(output_.framesLeft()));
        }
        mixBlock(interleaved.first(frames * 2));
        interleaved = interleaved.subspan(frames * 2);
    }
}

void Mixer::mixBlock(std::span<float> block) noexcept {
    std::ranges::fill(block, 0.0F);
    if (!silentByPause()) {
        addVoices(block);
        applyOutputGain(block);
        clipGuard_.process(block);
    } else {
        endFades();
    }
    capture_.stage(clock(), block);
    clock_.fetch_add(framesOf(block), std::memory_order_release);
    for (Voice* voice : voices()) {
        collectFreedFeeds(*voice);
    }
}

void Mixer::addVoice(Voice& voice, std::span<float> block, std::int64_t clock) noexcept {
    const std::span<float> scratch = std::span(scratch_).first(block.size());
    if (!voice.render(scratch, clock)) {
        return;
    }
    for (std::size_t i = 0; i < block.size(); ++i) {
        block[i] += scratch[i];
    }
}

void Mixer::addVoices(std::span<float> block) noexcept {
    for (Voice* voice : voices()) {
        addVoice(*voice, block, clock());
    }
    for (Voice* voice : voices()) {
        const auto place = voice->joinsAt();
        if (!place) {
            continue;
        }
        // Behind a voice that ends with the block, too: by the next one it may have been freed.
        voice->start();
        if (*place < block.size() / 2) {
            addVoice(*voice, block.subspan(*place * 2),
                     clock() + static_cast<std::int64_t>(*place));
        }
    }
}

void Mixer::applyOutputGain(std::span<float> block) noexcept {
    if (master_.settled() && output_.settled() && master_.value() * output_.value() == 1.0F) {
        return;
    }
    for (std::size_t i = 0; i + 1 < block.size(); i += 2) {
        const float gain = master_.next() * output_.next();
        block[i] *= gain;
        block[i + 1] *= gain;
    }
}

void Mixer::collectFreedFeeds(Voice& voice) noexcept {
    while (Feed* freed = voice.takeFreedFeed()) {
        freed_.add(freed, clock());
    }
}

void Mixer::giveBack(const Returned& returned) noexcept {
    // The interface thread empties this queue before each command it posts, and the queue holds
    // more than all commands and voices together can return.
    static_cast<void>(returned_.push(returned));
}

} // namespace tovik::sound
