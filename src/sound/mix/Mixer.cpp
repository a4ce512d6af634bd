// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/Mixer.h"

#include "sound/mix/DenormalGuard.h"
#include "sound/mix/FrameRing.h"

#include <algorithm>
#include <cstddef>
#include <thread>

namespace tovik::sound {

void Mixer::drain() noexcept {
    const Turn turn(taken_);
    if (turn.mine()) {
        carryOutCommands(false);
        giveBackLeftVoices();
    }
}

void Mixer::fallSilent() noexcept {
    for (bool done = false; !done;) {
        const Turn turn(taken_);
        if (!turn.mine()) {
            std::this_thread::yield(); // the other one drains, which is soon done
            continue;
        }
        carryOutCommands(false);
        endFades();
        if (!pausing_ && sounding()) {
            output_.jumpTo(0.0F);
            output_.rampTo(1.0F, kRampFrames);
        }
        giveBackLeftVoices();
        done = true;
    }
}

bool Mixer::sounding() const noexcept {
    return std::any_of(voices_.begin(), voices_.begin() + static_cast<std::ptrdiff_t>(voiceCount_),
                       [](const Voice* voice) { return voice->sounding(); });
}

void Mixer::endFades() noexcept {
    for (std::size_t v = 0; v < voiceCount_; ++v) {
        voices_[v]->endFades();
        giveBackFreedFeeds(*voices_[v]);
    }
}

void Mixer::mix(std::span<float> interleaved) noexcept {
    const Turn turn(taken_);
    const DenormalGuard denormals;
    if (!turn.mine()) {
        missedTurn_.bridge(interleaved);
        clock_.fetch_add(static_cast<std::int64_t>(interleaved.size() / 2),
                         std::memory_order_release);
        return;
    }
    carryOutCommands(true);
    const std::span<float> whole = interleaved;
    while (!interleaved.empty()) {
        std::size_t frames = std::min(interleaved.size() / 2, kMaxBlockFrames);
        if (!output_.settled()) {
            // A pause takes nothing from the feeds once it is silent: stop on the ramp's last
            // frame.
            frames = std::min(frames, static_cast<std::size_t>(output_.framesLeft()));
        }
        mixBlock(interleaved.first(frames * 2));
        interleaved = interleaved.subspan(frames * 2);
    }
    missedTurn_.pass(whole, sounding());
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
    giveBackLeftVoices();
    if (capture_ != nullptr) {
        capture_->write(block);
    }
    clock_.fetch_add(static_cast<std::int64_t>(block.size() / 2), std::memory_order_release);
}

void Mixer::addVoices(std::span<float> block) noexcept {
    const std::int64_t clock = clock_.load(std::memory_order_relaxed);
    const std::span<float> scratch = std::span(scratch_).first(block.size());
    for (std::size_t v = 0; v < voiceCount_; ++v) {
        if (!voices_[v]->render(scratch, clock)) {
            continue;
        }
        for (std::size_t i = 0; i < block.size(); ++i) {
            block[i] += scratch[i];
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

void Mixer::giveBack(const Returned& returned) noexcept {
    // The interface thread empties this queue before each command it posts, and the queue holds
    // more than all commands and voices together can return.
    static_cast<void>(returned_.push(returned));
}

void Mixer::giveBackFreedFeeds(Voice& voice) noexcept {
    while (Feed* freed = voice.takeFreedFeed()) {
        giveBack({.voice = nullptr, .feed = freed});
    }
}

void Mixer::giveBackLeftVoices() noexcept {
    for (std::size_t v = 0; v < voiceCount_;) {
        Voice* voice = voices_[v];
        giveBackFreedFeeds(*voice);
        if (voice->left()) {
            voices_[v] = voices_[--voiceCount_];
            giveBack({.voice = voice, .feed = nullptr});
        } else {
            ++v;
        }
    }
}

void Mixer::carryOutCommands(bool sounding) noexcept {
    Command next;
    while (commands_.pop(next)) {
        const bool audible = sounding && !silentByPause();
        obey(next, audible);
    }
}

void Mixer::carryOut(const command::AddVoice& order, bool) noexcept {
    // The maker keeps within kMaxVoices.
    voices_[voiceCount_++] = order.voice;
}

void Mixer::carryOut(const command::RemoveVoice& order, bool audible) noexcept {
    order.voice->leave(audible);
}

void Mixer::carryOut(const command::StartVoice& order, bool) noexcept {
    order.voice->start();
}

void Mixer::carryOut(const command::StopVoice& order, bool audible) noexcept {
    order.voice->stop(audible);
    giveBackFreedFeeds(*order.voice);
}

void Mixer::carryOut(const command::SwitchFeed& order, bool audible) noexcept {
    order.voice->switchFeed(*order.feed, audible);
    giveBackFreedFeeds(*order.voice);
}

void Mixer::carryOut(const command::SetVolume& order, bool) noexcept {
    order.voice->setVolume(order.volume, order.frames);
}

void Mixer::carryOut(const command::SetPan& order, bool) noexcept {
    order.voice->setPan(order.pan, order.frames);
}

void Mixer::carryOut(const command::SetBand& order, bool) noexcept {
    order.voice->setBand(order.band, order.coefficients);
}

void Mixer::carryOut(const command::SetMaster& order, bool audible) noexcept {
    // What begins now begins at this volume.
    master_.rampTo(order.volume, audible && sounding() ? kRampFrames : 0);
}

void Mixer::carryOut(const command::PauseOutput&, bool audible) noexcept {
    pausing_ = true;
    output_.rampTo(0.0F, audible ? kRampFrames : 0);
}

void Mixer::carryOut(const command::ResumeOutput&, bool) noexcept {
    pausing_ = false;
    // A track that begins at its head begins whole.
    output_.rampTo(1.0F, sounding() ? kRampFrames : 0);
}

void Mixer::carryOut(const command::SetCapture& order, bool) noexcept {
    capture_ = order.ring;
}

} // namespace tovik::sound
