// SPDX-License-Identifier: GPL-3.0-or-later
#include "vis/modSpectrum.h"

#include <algorithm>

namespace tovik::vis {

namespace {

/// A mark that falls by a hundredth a tick takes at most so many for its last row: ln 3 / -ln 0.99.
constexpr int kStillTicks = 110;

constexpr std::int16_t kSecondaryLeg = 1;
constexpr std::int16_t kPrimaryLeg = 2;

} // namespace

modSpectrum::modSpectrum(const player::Core& core, SpectrumArea& area)
    : core_(core), area_(area), timer_(core.timers.makeTimer([this] { tick(); })) {}

void modSpectrum::setSpeed(int milliseconds) {
    timer_->setInterval(milliseconds == 0 ? 0 : std::clamp(milliseconds, kFastestMs, kSlowestMs));
    stir();
}

void modSpectrum::StartSpectrum() {
    started_ = true;
    figure_.forget();
    timer_->setEnabled(false);
    stir();
}

void modSpectrum::StopSpectrum() {
    started_ = false;
    timer_->setEnabled(false);
    area_.clear();
    figure_.forget();
}

void modSpectrum::stir() {
    still_ = 0;
    if (!timer_->enabled() && timer_->interval() > 0 && mayMove()) {
        timer_->setEnabled(true);
    }
}

bool modSpectrum::mayMove() const {
    return started_ && core_.state.IsPlaying && !core_.state.IsPaused && area_.canBeSeen();
}

void modSpectrum::tick() {
    if (!mayMove()) {
        timer_->setEnabled(false);
        return;
    }
    listen();
    computeBands(data_, data_.bands);
    movePeaks(data_);
    if (figure_.place(data_, area_.height())) {
        area_.draw([this](ui::PixelImage& picture) { figure_.draw(picture, area_.bars()); });
        still_ = 0;
    } else if (settled()) {
        timer_->setEnabled(false);
    }
}

/// Where nothing can be heard of, what was heard last stands.
void modSpectrum::listen() {
    if (const sound::Handle heard = channel(); heard != sound::kNoHandle) {
        core_.sound.BASS_ChannelGetData(heard, data_.FFT.data(), sound::BASS_DATA_FFT512);
    }
}

sound::Handle modSpectrum::channel() const {
    const player::PlayerState& state = core_.state;
    if (state.ActiveChannel != player::ChannelSlot::none) {
        return state.active();
    }
    switch (state.CrossfadeLeg) {
    case kPrimaryLeg:
        return state.PrimaryChannel;
    case kSecondaryLeg:
        return state.SecondaryChannel;
    default:
        return sound::kNoHandle;
    }
}

/// Whether the channel is at its end and the last mark has come to rest.
bool modSpectrum::settled() {
    ++still_;
    return still_ >= kStillTicks &&
           core_.sound.BASS_ChannelIsActive(channel()) == sound::Activity::stopped;
}

} // namespace tovik::vis
