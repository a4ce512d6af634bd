// SPDX-License-Identifier: GPL-3.0-or-later
// The user's mouse on the sliders of the equalizer. Interface thread.
#pragma once

#include "ui/WindowInput.h"
#include "window/EqualizerSliders.h"

namespace tovik::window {

/// Each call returns whether the pointer was on a slider; other elements are not its business.
class EqualizerInput {
public:
    /// Kept by reference.
    explicit EqualizerInput(EqualizerSliders& sliders) : sliders_(sliders) {}

    bool mouseDown(const ui::PointerEvent& event);
    bool mouseMove(const ui::PointerEvent& event);
    bool mouseUp(const ui::PointerEvent& event);
    bool doubleClick(const ui::PointerEvent& event);
    bool wheel(const ui::PointerEvent& event, double notches);

    /// The slider under the pointer is told.
    void pointerEntered(ui::ElementAddress element);
    void pointerLeft(ui::ElementAddress element);

private:
    [[nodiscard]] ui::PicVScroll* sliderUnder(const ui::PointerEvent& event);

    EqualizerSliders& sliders_;
};

} // namespace tovik::window
