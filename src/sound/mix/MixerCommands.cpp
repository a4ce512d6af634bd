// SPDX-License-Identifier: GPL-3.0-or-later
// What each command does to the mixer.
#include "sound/mix/Mixer.h"

namespace tovik::sound {

void Mixer::carryOutCommands(bool sounding) noexcept {
    Command next;
    bool any = false;
    while (commands_.pop(next)) {
        const bool audible = sounding && !silentByPause();
        obey(next, audible);
        any = true;
    }
    if (any) {
        // What was mixed before did not know of them: nobody goes back there.
        starts_.clear();
        settleTo(clock());
    }
}

void Mixer::carryOut(const command::AddVoice& order, bool) noexcept {
    // The maker keeps within kMaxVoices.
    voices_[voiceCount_++] = order.voice;
}

/// What was to follow a voice that does not come to its end does not start.
void Mixer::forgetFollowers(const Voice& voice) noexcept {
    for (Voice* other : voices()) {
        other->forget(voice);
    }
}

void Mixer::carryOut(const command::RemoveVoice& order, bool audible) noexcept {
    forgetFollowers(*order.voice);
    order.voice->leave(audible);
}

void Mixer::carryOut(const command::StartVoice& order, bool) noexcept {
    order.voice->start();
}

void Mixer::carryOut(const command::StartBehind& order, bool) noexcept {
    order.voice->startBehind(*order.before);
}

void Mixer::carryOut(const command::StopVoice& order, bool audible) noexcept {
    forgetFollowers(*order.voice);
    order.voice->stop(audible);
    collectFreedFeeds(*order.voice);
}

void Mixer::carryOut(const command::SwitchFeed& order, bool audible) noexcept {
    order.voice->switchFeed(*order.feed, audible);
    collectFreedFeeds(*order.voice);
}

void Mixer::carryOut(const command::SetVolume& order, bool) noexcept {
    order.voice->setVolume(order.volume, order.frames);
}

void Mixer::carryOut(const command::SetPan& order, bool) noexcept {
    order.voice->setPan(order.pan, order.frames);
}

void Mixer::carryOut(const command::Blend& order, bool) noexcept {
    order.voice->blend(order.in, order.frames);
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
    capture_.settle(clock());
    capture_.begin(order.ring, clock());
}

void Mixer::carryOut(const command::LookAt&, bool) noexcept {}

} // namespace tovik::sound
