// SPDX-License-Identifier: GPL-3.0-or-later
// The ten bands and the master: the curve, and how it reaches the filters of the track that started
// last. Interface thread.
#pragma once

#include "host/Dialogs.h"
#include "player/Core.h"
#include "player/EqualizerGains.h"
#include "player/StartEqualizer.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tovik::player {

/// Holds the only copy of the curve: the values of its sliders, `kSliderTop` to `kSliderBottom`. A
/// step is one decibel; band and master add up, so that a band gets from -20 to 20 dB. With
/// `Comfort::countsOneDecibel` a step is what it is stored as, 1.2 dB.
class Equalizer final : public StartEqualizer {
public:
    static constexpr std::size_t kBands = 10;
    static constexpr std::size_t kMaster = kBands; ///< the index of the master's slider
    static constexpr std::size_t kSliders = kBands + 1;

    /// Both outlive the equalizer. All sliders stand in the middle.
    Equalizer(const Core& core, host::Dialogs& dialogs);

    /// The value of a slider: bands 0 to 9, then the master. Raises 9 for any other.
    [[nodiscard]] std::int32_t eq_sld(std::size_t index) const;

    /// The same with its fraction, which only a stored gain can bring.
    [[nodiscard]] double position(std::size_t index) const;

    /// What a slider says, in dB.
    [[nodiscard]] double decibelsOf(std::size_t index) const;

    /// Moves a slider, which is heard at once, also when it stood there. A value outside its limits
    /// is refused with a box; with `Comfort::limitsGains` it is the limit. Raises 9 for a slider
    /// that is none.
    void eq_sld(std::size_t index, double value);

    /// The value of a slider for a stored gain: a whole one, or with `Comfort::keepsFractions` that
    /// very gain. Raises 13 and, for a whole one, 6.
    [[nodiscard]] double sliderFor(std::string_view gain) const;

    /// Makes ten filters on the channel of the current leg and applies the sliders. Without a leg
    /// the filters of before are set anew.
    ///
    /// A deliberate oddity: nobody asks whether the equalizer is on, so each new track is heard
    /// with the curve of the sliders (`Comfort::staysOffForTracks` asks).
    void Set_EQ() override;

    /// Copies one slider to its filter.
    void UpdateEQ(std::int16_t band);

    /// Copies all ten.
    void set_DB();

    /// The record of comfort changed: what sounds follows it.
    void followComfort() { applyAll(); }

    /// How the switched-off equalizer sounds.
    void Reset_EQ();

    /// The slider's value turned round: the top is 20.
    [[nodiscard]] std::int32_t Translate_EQ_Value(std::int32_t value) const;

    // The buttons
    // ----------------------------------------------------------------------------------

    /// Switches off.
    void EQ_on_Click();

    /// Switches on.
    void EQ_off_Click();

    /// Either of them, by what is on.
    void flip();

    /// Puts the bands to the middle; the master stays, unless `Comfort::resetsMaster` takes it.
    void resetbt_Click();

private:
    [[nodiscard]] std::array<sound::Handle, kBands> makeFilters(sound::Handle channel);
    void setGain(std::size_t band, double gain);
    void applyAll();
    [[nodiscard]] double decibelsPerStep() const;
    void copySlider(std::size_t band);

    const Core& core_;
    host::Dialogs& dialogs_;
    std::array<double, kSliders> sliders_{};
    std::array<sound::Handle, kBands> BandEffects_{};   ///< of the track that started last
    std::array<sound::Handle, kBands> FormerEffects_{}; ///< of the one before
};

} // namespace tovik::player
