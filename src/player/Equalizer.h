// SPDX-License-Identifier: GPL-3.0-or-later
// The ten bands and the master: what the sliders say reaches the filters of the track that started
// last. Interface thread.
#pragma once

#include "config/Errors.h"
#include "host/Dialogs.h"
#include "player/PlayerState.h"
#include "player/StartEqualizer.h"
#include "sound/SoundLibrary.h"
#include "ui/MainElements.h"
#include "ui/PicVScroll.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tovik::player {

/// The sliders hold the only copy of the curve. A step is one decibel; band and master add up, so
/// that a band gets from -20 to 20 dB.
class Equalizer final : public StartEqualizer {
public:
    static constexpr std::size_t kBands = 10;
    static constexpr std::size_t kMaster = kBands; ///< the index of the master's slider

    /// What the equalizer works with; all of it outlives it.
    struct Parts {
        PlayerState& state;
        sound::SoundLibrary& sound;
        config::Errors& errors;
        ui::MainElements& elements;
        host::Dialogs& dialogs;
    };

    explicit Equalizer(const Parts& parts);
    ~Equalizer() override = default;
    Equalizer(const Equalizer&) = delete;
    Equalizer& operator=(const Equalizer&) = delete;

    /// Makes ten filters on the channel of the current leg and applies the sliders. Without a leg
    /// the filters of before are set anew.
    ///
    /// A deliberate oddity: nobody asks whether the equalizer is on, so each new track is heard
    /// with the curve of the sliders.
    void Set_EQ() override;

    /// Copies one slider to its filter.
    void UpdateEQ(std::int16_t band);

    /// Copies all ten.
    void set_DB();

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

    /// Puts the bands to the middle; the master stays.
    void resetbt_Click();

    /// Draws all sliders where their values put them, with the skin's bar if there is one.
    void draw();

    /// Bands 0 to 9, then the master. Raises 9 for any other.
    [[nodiscard]] ui::PicVScroll& eq_sld(std::size_t index);

private:
    [[nodiscard]] std::array<sound::Handle, kBands> makeFilters(sound::Handle channel);
    void setGain(std::size_t band, std::int32_t gain);
    void copySlider(std::size_t band);
    void showSwitch();

    Parts p_;
    std::vector<ui::PicVScroll> sliders_;
    std::array<sound::Handle, kBands> BandEffects_{}; ///< of the track that started last
};

} // namespace tovik::player
