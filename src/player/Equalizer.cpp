// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/Equalizer.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "player/EqualizerGains.h"

namespace tovik::player {

using ui::MainElement;

namespace {

constexpr std::array<float, Equalizer::kBands> kCentresHz = {60,   170,  310,   600,   1000,
                                                             3000, 6000, 12000, 14000, 16000};
constexpr float kBandwidth = 15; ///< semitones

/// A deliberate oddity: the switched-off equalizer is no straight line at 0 dB. It lifts every band
/// by this much less what a slider in the middle gives, which is 5 dB.
constexpr std::int32_t kSwitchedOff = 15;

} // namespace

Equalizer::Equalizer(const Parts& parts) : p_(parts) {
    sliders_.reserve(kBands + 1);
    for (std::size_t index = 0; index <= kMaster; ++index) {
        sliders_.emplace_back(
            p_.elements, ui::addressOf(MainElement::eq_sld, index), p_.dialogs,
            ui::SliderRange{.Min = kSliderTop, .Max = kSliderBottom, .Value = kSliderMiddle});
        sliders_.back().Change = [this, index] {
            // The master has no filter of its own.
            if (index != kMaster) {
                UpdateEQ(static_cast<std::int16_t>(index));
            }
            set_DB();
        };
    }
}

ui::PicVScroll& Equalizer::eq_sld(std::size_t index) {
    if (index >= sliders_.size()) {
        throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
    }
    return sliders_[index];
}

void Equalizer::draw() {
    const ui::Element& bar = p_.elements.get(MainElement::Picture7);
    for (ui::PicVScroll& slider : sliders_) {
        if (bar.picture) {
            slider.Bar(bar.picture, bar.height);
        } else {
            slider.DrawBar(true);
        }
    }
}

std::array<sound::Handle, Equalizer::kBands> Equalizer::makeFilters(sound::Handle channel) {
    std::array<sound::Handle, kBands> filters{};
    for (sound::Handle& filter : filters) {
        filter = p_.sound.BASS_ChannelSetFX(channel, sound::BASS_FX_PARAMEQ);
    }
    return filters;
}

void Equalizer::Set_EQ() {
    config::guard(p_.errors, config::player("SetEQ"), [this] {
        // Filters of the track before keep sounding with it, but nothing reaches them any more.
        if (p_.state.CrossfadeLeg == 2) {
            BandEffects_ = makeFilters(p_.state.PrimaryChannel);
        } else if (p_.state.CrossfadeLeg == 1) {
            BandEffects_ = makeFilters(p_.state.SecondaryChannel);
        }
        for (std::size_t band = 0; band < kBands; ++band) {
            p_.sound.BASS_FXSetParameters(BandEffects_.at(band),
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
    if (p_.sound.BASS_FXGetParameters(BandEffects_.at(band), parameters)) {
        parameters.fGain = static_cast<float>(gain);
        p_.sound.BASS_FXSetParameters(BandEffects_.at(band), parameters);
    }
}

void Equalizer::copySlider(std::size_t band) {
    setGain(band, Translate_EQ_Value(eq_sld(band).Value()) - eq_sld(kMaster).Value());
}

void Equalizer::UpdateEQ(std::int16_t band) {
    config::guard(p_.errors, config::player("UpdateEQ"), [&] {
        if (band < 0 || static_cast<std::size_t>(band) >= kBands) {
            throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
        }
        copySlider(static_cast<std::size_t>(band));
    });
}

void Equalizer::set_DB() {
    config::guard(p_.errors, config::player("UpdateEQ"), [this] {
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
    config::guard(p_.errors, config::player("Translate_EQ_Value"),
                  [&] { turned = base::toInt32(static_cast<double>(kSliderBottom) - value); });
    return turned;
}

void Equalizer::showSwitch() {
    // Only the panel of the equalizer shows one of the two.
    const bool shown =
        p_.elements.get(MainElement::EQ_on).visible || p_.elements.get(MainElement::EQ_off).visible;
    p_.elements.touch(MainElement::EQ_on).visible = shown && p_.state.EqualizerOn;
    p_.elements.touch(MainElement::EQ_off).visible = shown && !p_.state.EqualizerOn;
}

void Equalizer::EQ_off_Click() {
    p_.state.EqualizerOn = true;
    showSwitch();
    for (std::int16_t band = 0; band < static_cast<std::int16_t>(kBands); ++band) {
        UpdateEQ(band);
    }
}

void Equalizer::EQ_on_Click() {
    p_.state.EqualizerOn = false;
    showSwitch();
    Reset_EQ();
}

void Equalizer::flip() {
    if (p_.state.EqualizerOn) {
        EQ_on_Click();
    } else {
        EQ_off_Click();
    }
}

void Equalizer::resetbt_Click() {
    for (std::size_t band = 0; band < kBands; ++band) {
        eq_sld(band).Value(kSliderMiddle);
    }
}

} // namespace tovik::player
