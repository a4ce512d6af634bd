// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/EqualizerInput.h"

namespace tovik::window {

ui::PicVScroll* EqualizerInput::sliderUnder(const ui::PointerEvent& event) {
    return event.over(MainElement::eq_sld) ? &sliders_.eq_sld(event.element->index) : nullptr;
}

bool EqualizerInput::mouseDown(const ui::PointerEvent& event) {
    ui::PicVScroll* const slider = sliderUnder(event);
    if (slider != nullptr) {
        slider->mouseDown(event);
    }
    return slider != nullptr;
}

bool EqualizerInput::mouseMove(const ui::PointerEvent& event) {
    ui::PicVScroll* const slider = sliderUnder(event);
    if (slider != nullptr) {
        slider->mouseMove(event);
    }
    return slider != nullptr;
}

bool EqualizerInput::mouseUp(const ui::PointerEvent& event) {
    ui::PicVScroll* const slider = sliderUnder(event);
    if (slider != nullptr) {
        slider->mouseUp(event);
    }
    return slider != nullptr;
}

bool EqualizerInput::doubleClick(const ui::PointerEvent& event) {
    ui::PicVScroll* const slider =
        event.button == ui::MouseButton::Left ? sliderUnder(event) : nullptr;
    if (slider != nullptr) {
        slider->doubleClick();
    }
    return slider != nullptr;
}

bool EqualizerInput::wheel(const ui::PointerEvent& event, double notches) {
    ui::PicVScroll* const slider = sliderUnder(event);
    if (slider != nullptr) {
        slider->turn(notches);
    }
    return slider != nullptr;
}

void EqualizerInput::pointerEntered(ui::ElementAddress element) {
    if (element.as<MainElement>() == MainElement::eq_sld) {
        sliders_.tell(element.index);
    }
}

void EqualizerInput::pointerLeft(ui::ElementAddress element) {
    if (element.as<MainElement>() == MainElement::eq_sld) {
        sliders_.tell({});
    }
}

} // namespace tovik::window
