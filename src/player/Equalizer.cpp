// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Equalizer.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"

#include <algorithm>
#include <utility>

namespace tovik::player {

namespace {

constexpr std::array<float, Equalizer::kBands> kCentresHz = {60,   170,  310,   600,   1000,
                                                             3000, 6000, 12000, 14000, 16000};
constexpr float kBandwidth = 15; ///< semitones

/// A deliberate oddity: the switched-off equalizer is no straight line at 0 dB. It lifts every band
/// by this much less what a slider in the middle gives, which is 5 dB.
constexpr std::int32_t kSwitchedOff = 15;

} // namespace

Equalizer::Equalizer(const Core& core, host::Dialogs& dialogs) : core_(core), dialogs_(dialogs) {
    sliders_.fill(kSliderMiddle);
}

std::int32_t Equalizer::eq_sld(std::size_t index) const {
    return base::toInt32(position(index));
}

double Equalizer::position(std::size_t index) const {
    if (index >= sliders_.size()) {
        throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
    }
    return sliders_[index];
}

double Equalizer::decibelsPerStep() const {
    return core_.state.comfort.countsOneDecibel ? kStoredStep : 1;
}

double Equalizer::decibelsOf(std::size_t index) const {
    return (kSliderMiddle - position(index)) * decibelsPerStep();
}

double Equalizer::sliderFor(std::string_view gain) const {
    return core_.state.comfort.keepsFractions ? exactSliderOfGain(gain) : sliderOfGain(gain);
}

/// A deliberate oddity: nobody asks whether the equalizer is on, so a slider that is moved brings
/// the whole curve back, unless `Comfort::staysOffForSliders` says otherwise.
void Equalizer::eq_sld(std::size_t index, double value) {
    if (core_.state.comfort.limitsGains) {
        value = std::clamp<double>(value, kSliderTop, kSliderBottom);
    }
    if (value < kSliderTop || value > kSliderBottom) {
        dialogs_.showMessage({.text = "Value exceeds limits!",
                              .title = "Error",
                              .icon = host::MessageIcon::Exclamation});
        return;
    }
    static_cast<void>(eq_sld(index));
    if (std::exchange(sliders_.at(index), value) != value) {
        core_.settings.changed(index == kMaster ? "CDB" : "CEQ");
    }
    core_.screen.showSlider(index, eq_sld(index));
    if (core_.state.comfort.staysOffForSliders && !core_.state.EqualizerOn) {
        return;
    }
    // The master has no filter of its own.
    if (index != kMaster) {
        UpdateEQ(static_cast<std::int16_t>(index));
    }
    set_DB();
}

std::array<sound::Handle, Equalizer::kBands> Equalizer::makeFilters(sound::Handle channel) {
    std::array<sound::Handle, kBands> filters{};
    for (sound::Handle& filter : filters) {
        filter = core_.sound.BASS_ChannelSetFX(channel, sound::BASS_FX_PARAMEQ);
    }
    return filters;
}

void Equalizer::Set_EQ() {
    config::guard(core_.errors, config::player("SetEQ"), [this] {
        // Filters of the track before keep sounding with it, but nothing reaches them any more.
        const auto former = BandEffects_;
        if (core_.state.CrossfadeLeg == 2 || core_.state.playsStation()) {
            BandEffects_ = makeFilters(core_.state.PrimaryChannel);
        } else if (core_.state.CrossfadeLeg == 1) {
            BandEffects_ = makeFilters(core_.state.SecondaryChannel);
        }
        if (former != BandEffects_) {
            FormerEffects_ = former;
        }
        for (std::size_t band = 0; band < kBands; ++band) {
            core_.sound.BASS_FXSetParameters(BandEffects_.at(band),
                                             {kCentresHz.at(band), kBandwidth, 0});
        }
        if (core_.state.comfort.staysOffForTracks && !core_.state.EqualizerOn) {
            Reset_EQ();
            return;
        }
        for (std::int16_t band = 0; band < static_cast<std::int16_t>(kBands); ++band) {
            UpdateEQ(band);
        }
    });
}

void Equalizer::setGain(std::size_t band, double gain) {
    const auto set = [&](sound::Handle filter) {
        sound::BASS_FXPARAMEQ parameters;
        // There may be no such filter: nothing was started yet, or its channel is gone.
        if (core_.sound.BASS_FXGetParameters(filter, parameters)) {
            parameters.fGain = static_cast<float>(gain);
            core_.sound.BASS_FXSetParameters(filter, parameters);
        }
    };
    set(BandEffects_.at(band));
    // A deliberate oddity: a track that fades out keeps the curve it had.
    if (core_.state.comfort.bendsBothTracks) {
        set(FormerEffects_.at(band));
    }
}

void Equalizer::copySlider(std::size_t band) {
    setGain(band, (kSliderBottom - position(band) - position(kMaster)) * decibelsPerStep());
}

void Equalizer::UpdateEQ(std::int16_t band) {
    config::guard(core_.errors, config::player("UpdateEQ"), [&] {
        if (band < 0 || static_cast<std::size_t>(band) >= kBands) {
            throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
        }
        copySlider(static_cast<std::size_t>(band));
    });
}

void Equalizer::set_DB() {
    config::guard(core_.errors, config::player("UpdateEQ"), [this] {
        for (std::size_t band = 0; band < kBands; ++band) {
            copySlider(band);
        }
    });
}

void Equalizer::Reset_EQ() {
    for (std::size_t band = 0; band < kBands; ++band) {
        setGain(band, core_.state.comfort.switchesOffFlat
                          ? 0
                          : kSwitchedOff - Translate_EQ_Value(kSliderMiddle));
    }
}

std::int32_t Equalizer::Translate_EQ_Value(std::int32_t value) const {
    std::int32_t turned = 0;
    config::guard(core_.errors, config::player("Translate_EQ_Value"),
                  [&] { turned = base::toInt32(static_cast<double>(kSliderBottom) - value); });
    return turned;
}

void Equalizer::applyAll() {
    if (!core_.state.EqualizerOn) {
        Reset_EQ();
        return;
    }
    for (std::int16_t band = 0; band < static_cast<std::int16_t>(kBands); ++band) {
        UpdateEQ(band);
    }
}

void Equalizer::EQ_off_Click() {
    core_.state.EqualizerOn = true;
    core_.screen.showEqualizer();
    applyAll();
}

void Equalizer::EQ_on_Click() {
    core_.state.EqualizerOn = false;
    core_.screen.showEqualizer();
    Reset_EQ();
}

void Equalizer::flip() {
    if (core_.state.EqualizerOn) {
        EQ_on_Click();
    } else {
        EQ_off_Click();
    }
}

void Equalizer::resetbt_Click() {
    for (std::size_t band = 0; band < kBands; ++band) {
        eq_sld(band, kSliderMiddle);
    }
    if (core_.state.comfort.resetsMaster) {
        eq_sld(kMaster, kSliderMiddle);
    }
}

} // namespace tovik::player
