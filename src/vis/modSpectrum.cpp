// SPDX-License-Identifier: GPL-3.0-or-later
#include "vis/modSpectrum.h"

#include "vis/HeardChannel.h"

#include <utility>

namespace tovik::vis {

namespace {

/// A mark that falls by a hundredth a tick takes at most so many for its last row: ln 3 / -ln 0.99.
/// One that falls by time takes fewer, also at the fastest tick.
constexpr int kStillTicks = 110;

} // namespace

modSpectrum::modSpectrum(const player::Core& core, const host::Clock& clock, VisualArea& area)
    : core_(core), clock_(clock), area_(&area), timer_(core.timers.makeTimer([this] { tick(); })) {}

void modSpectrum::setSpeed(int milliseconds) {
    timer_->setInterval(intervalOf(milliseconds));
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
    area_->clear();
    figure_.forget();
}

void modSpectrum::drawIn(VisualArea& area) {
    area_ = &area;
    figure_.forget();
    stir();
}

void modSpectrum::stir() {
    still_ = 0;
    if (!timer_->enabled() && timer_->interval() > 0 && mayMove()) {
        timer_->setEnabled(true);
        lastTick_.reset();
    }
}

bool modSpectrum::mayMove() const {
    return started_ && vis::mayMove(core_.state, *area_);
}

void modSpectrum::tick() {
    if (!mayMove()) {
        timer_->setEnabled(false);
        return;
    }
    listen();
    const base::Comfort& comfort = core_.state.comfort;
    const double seconds = passed();
    computeBands(data_, data_.bands, comfort, seconds);
    movePeaks(data_, comfort, seconds);
    if (figure_.place(data_, area_->width(), area_->height())) {
        area_->draw(1, [this](ui::PixelImage& picture) { figure_.draw(picture, area_->bars()); });
        still_ = 0;
    } else if (settled()) {
        timer_->setEnabled(false);
    }
}

/// Since the tick before, in seconds: ticks may come late.
double modSpectrum::passed() {
    constexpr double kMsInSecond = 1000;
    const std::int64_t now = clock_.monotonicMs();
    const std::int64_t before = std::exchange(lastTick_, now).value_or(now);
    return static_cast<double>(now - before) / kMsInSecond;
}

/// Where nothing can be heard of, what was heard last stands.
void modSpectrum::listen() {
    if (const sound::Handle heard = heardChannel(core_.state); heard != sound::kNoHandle) {
        core_.sound.BASS_ChannelGetData(heard, data_.FFT.data(), sound::BASS_DATA_FFT512);
    }
}

/// Whether the channel is at its end and the last mark has come to rest.
bool modSpectrum::settled() {
    ++still_;
    return still_ >= kStillTicks &&
           core_.sound.BASS_ChannelIsActive(heardChannel(core_.state)) == sound::Activity::stopped;
}

} // namespace tovik::vis
