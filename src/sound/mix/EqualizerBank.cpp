// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/EqualizerBank.h"

#include <algorithm>
#include <cmath>

namespace tovik::sound {

namespace {

constexpr std::size_t kPartFrames = 32; ///< coefficients are exact at the ends of such a part
constexpr float kInaudible = 1e-9F;     ///< a fading band below it is at rest
constexpr float kAbsurd = 1e15F;        ///< no sound makes a state as large as this

/// Puts a value into the lanes of one band: 0 the even one, 1 the odd one.
void setBandLanes(Lanes& lanes, std::size_t odd, double value) noexcept {
    lanes[2 * odd] = lanes[2 * odd + 1] = static_cast<float>(value);
}

float largestState(const CascadePair& pair, std::size_t odd) noexcept {
    const std::size_t left = 2 * odd;
    return std::max({std::abs(pair.drive[left]), std::abs(pair.drive[left + 1]),
                     std::abs(pair.low[left]), std::abs(pair.low[left + 1])});
}

/// Also false for states that are no numbers.
bool sane(const CascadePair& pair) noexcept {
    float sum = 0.0F;
    for (std::size_t lane = 0; lane < 4; ++lane) {
        sum += std::abs(pair.drive[lane]) + std::abs(pair.low[lane]);
    }
    return sum < kAbsurd;
}

/// Lets the coefficients of one band start where it stands and go where it will be after `frames`.
void aimBand(CascadePair& pair, std::size_t odd, BandRamp& band, std::size_t frames) noexcept {
    const BandPoint from = band.resting() ? BandPoint{} : band.now();
    band.advance(frames);
    const BandPoint to = band.resting() ? BandPoint{} : band.now();
    const double frequency = std::sqrt(from.frequencySquared);
    const double part = 1.0 / static_cast<double>(frames);
    setBandLanes(pair.gain, odd, from.gain);
    setBandLanes(pair.frequency, odd, frequency);
    setBandLanes(pair.feedback, odd, from.feedback);
    setBandLanes(pair.gainStep, odd, (to.gain - from.gain) * part);
    setBandLanes(pair.frequencyStep, odd, (std::sqrt(to.frequencySquared) - frequency) * part);
    setBandLanes(pair.feedbackStep, odd, (to.feedback - from.feedback) * part);
}

} // namespace

void EqualizerBank::setBand(int index, const BandCoefficients& band, bool ramp) noexcept {
    if (index < 0 || index >= kBands) {
        return;
    }
    BandRamp& way = bands_[static_cast<std::size_t>(index)];
    way.goTo(band);
    if (!ramp) {
        way.finish();
    }
}

bool EqualizerBank::neutral() const noexcept {
    return std::all_of(bands_.begin(), bands_.end(),
                       [](const BandRamp& band) { return band.resting(); });
}

bool EqualizerBank::ramping() const noexcept {
    return std::any_of(bands_.begin(), bands_.end(),
                       [](const BandRamp& band) { return band.ramping(); });
}

void EqualizerBank::reset() noexcept {
    for (BandRamp& band : bands_) {
        band.finish();
        if (band.fadingOut()) {
            band.rest();
        }
    }
    pairs_ = {};
}

void EqualizerBank::process(std::span<float> interleaved) noexcept {
    while (interleaved.size() > 1) {
        const bool moving = ramping();
        const std::size_t left = interleaved.size() / 2;
        const std::size_t frames = moving ? std::min(left, kPartFrames) : left;
        const std::size_t count = aim(frames);
        if (count == 0) {
            return;
        }
        runCascade({active_.data(), count}, interleaved.first(frames * 2), moving);
        for (std::size_t pair = 0; pair < pairs_.size(); ++pair) {
            settle(pair);
        }
        interleaved = interleaved.subspan(frames * 2);
    }
}

/// Moves all bands on by `frames`, sets the way of their coefficients meanwhile, and lists the
/// pairs at work; returns the number of these.
std::size_t EqualizerBank::aim(std::size_t frames) noexcept {
    std::size_t count = 0;
    for (std::size_t i = 0; i < pairs_.size(); ++i) {
        if (bands_[2 * i].resting() && bands_[2 * i + 1].resting()) {
            continue;
        }
        aimBand(pairs_[i], 0, bands_[2 * i], frames);
        aimBand(pairs_[i], 1, bands_[2 * i + 1], frames);
        active_[count++] = &pairs_[i];
    }
    return count;
}

/// Bands that have faded out come to rest; a pair that took in something that is no sound forgets.
void EqualizerBank::settle(std::size_t index) noexcept {
    CascadePair& pair = pairs_[index];
    if (!sane(pair)) {
        pair.drive = pair.low = Lanes{};
    }
    for (std::size_t odd = 0; odd < 2; ++odd) {
        BandRamp& band = bands_[2 * index + odd];
        if (!band.resting() && band.fadingOut() && largestState(pair, odd) < kInaudible) {
            band.rest();
            setBandLanes(pair.drive, odd, 0.0);
            setBandLanes(pair.low, odd, 0.0);
        }
    }
}

} // namespace tovik::sound
