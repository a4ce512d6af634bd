// SPDX-License-Identifier: GPL-3.0-or-later
// The user's mouse on the sliders of the equalizer. Interface thread.
#pragma once

#include "player/Equalizer.h"
#include "ui/WindowInput.h"

namespace tovik::window {

/// Each call returns whether the pointer was on a slider; other elements are not its business.
class EqualizerInput {
public:
    /// Kept by reference.
    explicit EqualizerInput(player::Equalizer& equalizer) : equalizer_(equalizer) {}

    bool mouseDown(const ui::PointerEvent& event);
    bool mouseMove(const ui::PointerEvent& event);
    bool mouseUp(const ui::PointerEvent& event);
    bool doubleClick(const ui::PointerEvent& event);
    bool wheel(const ui::PointerEvent& event, double notches);

private:
    [[nodiscard]] ui::PicVScroll* sliderUnder(const ui::PointerEvent& event);

    player::Equalizer& equalizer_;
};

} // namespace tovik::window
