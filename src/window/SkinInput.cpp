// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/SkinInput.h"

namespace tovik::window {

void SkinInput::mouseDown(const ui::PointerEvent& event) {
    flat_.mouseDown(event);
    next_.mouseDown(event);
}

void SkinInput::mouseMove(const ui::PointerEvent& event) {
    config::guard(errors_, config::player("MouseMove"), [&] {
        if (event.over(MainElement::mainIMG)) {
            skin_.movedOverBackground();
        } else if (event.element && !event.leftHeld) {
            panels_.hoverTab(event.element->as<MainElement>());
        }
        flat_.mouseMove(event);
    });
    next_.mouseMove(event);
}

void SkinInput::mouseUp(const ui::PointerEvent& event) {
    // What a click runs may open a dialog: the button is up by then.
    flat_.mouseUp(event);
    next_.mouseUp(event);
    if (event.over(MainElement::prebt) && event.button == ui::MouseButton::Left) {
        panels_.releasePreferences();
    }
}

void SkinInput::pointerEntered(ui::ElementAddress element) {
    skin_.pointerEntered(element);
    flat_.pointerEntered(element);
    next_.pointerEntered(element);
}

void SkinInput::pointerLeft(ui::ElementAddress element) {
    skin_.pointerLeft();
    flat_.pointerLeft(element);
    next_.pointerLeft(element);
}

} // namespace tovik::window
