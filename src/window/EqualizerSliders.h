// SPDX-License-Identifier: GPL-3.0-or-later
// The sliders of the equalizer, which show its curve, and its switch. Interface thread.
#pragma once

#include "host/Dialogs.h"
#include "player/Equalizer.h"
#include "ui/PicVScroll.h"
#include "window/MainElements.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace tovik::window {

/// A slider's value is that of the curve; a hand on the slider moves the curve.
class EqualizerSliders final : public player::NowPlayingView {
public:
    /// All of them outlive the sliders. They are not drawn yet.
    EqualizerSliders(const player::PlayerState& state, player::Equalizer& equalizer,
                     MainElements& elements, host::Dialogs& dialogs);
    EqualizerSliders(const EqualizerSliders&) = delete;
    EqualizerSliders& operator=(const EqualizerSliders&) = delete;

    /// Draws all sliders where their values put them, with the skin's bar if there is one.
    void draw();

    /// Bands 0 to 9, then the master. Raises 9 for any other.
    [[nodiscard]] ui::PicVScroll& eq_sld(std::size_t index);

    /// Tells name and decibels of the slider that the pointer is on; of none with an empty one.
    void tell(std::optional<std::size_t> slider);

    void showSlider(std::size_t slider, std::int32_t value) override;
    void showEqualizer() override;

private:
    const player::PlayerState& state_;
    player::Equalizer& equalizer_;
    MainElements& elements_;
    std::vector<ui::PicVScroll> sliders_;
    std::optional<std::size_t> moved_; ///< the slider that moves the curve just now
    std::optional<std::size_t> told_;  ///< the slider whose decibels are shown
};

} // namespace tovik::window
