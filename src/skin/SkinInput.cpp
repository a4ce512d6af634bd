// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/SkinInput.h"

namespace tovik::skin {

using ui::MainElement;

void SkinInput::mouseMove(const ui::PointerEvent& event) {
    config::guard(errors_, config::player("MouseMove"), [&] {
        if (event.over(MainElement::mainIMG)) {
            skin_.movedOverBackground();
        } else if (event.element && !event.leftHeld) {
            panels_.hoverTab(event.element->as<MainElement>());
        }
    });
    next_.mouseMove(event);
}

void SkinInput::mouseUp(const ui::PointerEvent& event) {
    next_.mouseUp(event);
    if (event.over(MainElement::prebt) && event.button == ui::MouseButton::Left) {
        panels_.releasePreferences();
    }
}

void SkinInput::pointerEntered(ui::ElementAddress element) {
    skin_.pointerEntered(element);
    next_.pointerEntered(element);
}

} // namespace tovik::skin
