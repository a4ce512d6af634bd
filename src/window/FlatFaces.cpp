// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/FlatFaces.h"

#include "window/MainButtons.h"
#include "window/PanelTable.h"

#include <algorithm>

namespace tovik::window {

namespace {

/// Buttons that act on a click, without the tabs, which have faces of their own.
bool isFlatOnMain(ui::ElementAddress element) {
    const auto name = element.as<MainElement>();
    return std::ranges::find(tabs(), name, &Tab::name) == tabs().end() &&
           std::ranges::any_of(clickButtons(), [element](const auto& button) {
               return element == ui::addressOf(button.name, button.index);
           });
}

} // namespace

FlatFaces::FlatFaces(MainElements& elements) : FlatFaces(elements, isFlatOnMain) {}

void FlatFaces::show(ui::ElementAddress element, ui::Shade shade) {
    if (elements_.at(elements_.slotOf(element)).shade != shade) {
        elements_.touchAt(element).shade = shade;
    }
}

bool FlatFaces::isOn(const ui::PointerEvent& event, ui::ElementAddress element) const {
    return elements_.at(elements_.slotOf(element)).box().contains(event.windowX, event.windowY);
}

void FlatFaces::pointerEntered(ui::ElementAddress element) {
    if (isFlat_(element)) {
        show(element, ui::Shade::Lighter);
    }
}

void FlatFaces::pointerLeft(ui::ElementAddress element) {
    if (isFlat_(element)) {
        show(element, ui::Shade::None);
    }
}

void FlatFaces::mouseDown(const ui::PointerEvent& event) {
    if (event.button == ui::MouseButton::Left && event.element && isFlat_(*event.element)) {
        pressed_ = event.element;
        show(*pressed_, ui::Shade::Darker);
    }
}

void FlatFaces::mouseMove(const ui::PointerEvent& event) {
    if (!pressed_) {
        return;
    }
    const bool on = isOn(event, *pressed_);
    if (event.leftHeld) {
        show(*pressed_, on ? ui::Shade::Darker : ui::Shade::None);
        return;
    }
    // The release went elsewhere, for example to a dialog that the press opened.
    show(*pressed_, on ? ui::Shade::Lighter : ui::Shade::None);
    pressed_.reset();
}

void FlatFaces::mouseUp(const ui::PointerEvent& event) {
    if (event.button == ui::MouseButton::Left && pressed_) {
        show(*pressed_, isOn(event, *pressed_) ? ui::Shade::Lighter : ui::Shade::None);
        pressed_.reset();
    }
}

} // namespace tovik::window
