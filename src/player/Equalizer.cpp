// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Equalizer.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"

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
    if (index >= sliders_.size()) {
        throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
    }
    return sliders_[index];
}

/// A deliberate oddity: nobody asks whether the equalizer is on, so a slider that is moved brings
/// the whole curve back.
void Equalizer::eq_sld(std::size_t index, std::int32_t value) {
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
    core_.screen.showSlider(index, value);
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
        if (core_.state.CrossfadeLeg == 2 || core_.state.playsStation()) {
            BandEffects_ = makeFilters(core_.state.PrimaryChannel);
        } else if (core_.state.CrossfadeLeg == 1) {
            BandEffects_ = makeFilters(core_.state.SecondaryChannel);
        }
        for (std::size_t band = 0; band < kBands; ++band) {
            core_.sound.BASS_FXSetParameters(BandEffects_.at(band),
                                             {kCentresHz.at(band), kBandwidth, 0});
        }
        for (std::int16_t band = 0; band < static_cast<std::int16_t>(kBands); ++band) {
            UpdateEQ(band);
        }
    });
}

void Equalizer::setGain(std::size_t band, std::int32_t gain) {
    sound::BASS_FXPARAMEQ parameters;
    // There may be no such filter: nothing was started yet, or its channel is gone.
    if (core_.sound.BASS_FXGetParameters(BandEffects_.at(band), parameters)) {
        parameters.fGain = static_cast<float>(gain);
        core_.sound.BASS_FXSetParameters(BandEffects_.at(band), parameters);
    }
}

void Equalizer::copySlider(std::size_t band) {
    setGain(band, Translate_EQ_Value(eq_sld(band)) - eq_sld(kMaster));
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
        setGain(band, kSwitchedOff - Translate_EQ_Value(kSliderMiddle));
    }
}

std::int32_t Equalizer::Translate_EQ_Value(std::int32_t value) const {
    std::int32_t turned = 0;
    config::guard(core_.errors, config::player("Translate_EQ_Value"),
                  [&] { turned = base::toInt32(static_cast<double>(kSliderBottom) - value); });
    return turned;
}

void Equalizer::EQ_off_Click() {
    core_.state.EqualizerOn = true;
    core_.screen.showEqualizer();
    for (std::int16_t band = 0; band < static_cast<std::int16_t>(kBands); ++band) {
        UpdateEQ(band);
    }
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
}

} // namespace tovik::player
