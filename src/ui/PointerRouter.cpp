// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/PointerRouter.h"

#include <utility>

namespace tovik::ui {

void PointerRouter::moved(const PointerState& pointer) {
    forgetLostPress(pointer);
    if (!pressed_) {
        hover(enabledAt(pointer));
    }
    input_.mouseMove(eventAt(pointer, MouseButton::None));
}

void PointerRouter::pressed(const PointerState& pointer, MouseButton button, bool twice) {
    if (!pressed_) {
        pressed_ = elements_.topmostAt(pointer.x, pointer.y);
    }
    const PointerEvent event = eventAt(pointer, button);
    input_.mouseDown(event);
    if (twice) {
        input_.doubleClick(event);
    }
}

void PointerRouter::released(const PointerState& pointer, MouseButton button) {
    const PointerEvent event = eventAt(pointer, button);
    if (!pointer.anyHeld) {
        pressed_.reset();
    }
    input_.mouseUp(event);
    if (!pressed_) {
        hover(enabledAt(pointer));
    }
}

void PointerRouter::turned(const PointerState& pointer, double notches) {
    forgetLostPress(pointer);
    input_.wheel(eventAt(pointer, MouseButton::None), notches);
}

void PointerRouter::hover(std::optional<std::size_t> slot) {
    if (slot == hovered_) {
        return;
    }
    const std::optional<std::size_t> before = std::exchange(hovered_, slot);
    if (before) {
        input_.pointerLeft(elements_.address(*before));
    }
    if (slot) {
        input_.pointerEntered(elements_.address(*slot));
    }
}

void PointerRouter::forgetLostPress(const PointerState& pointer) noexcept {
    // A release may have gone elsewhere, for example to a dialog that the press opened.
    if (!pointer.anyHeld) {
        pressed_.reset();
    }
}

std::optional<std::size_t> PointerRouter::enabledAt(const PointerState& pointer) const {
    const auto slot = elements_.topmostAt(pointer.x, pointer.y);
    return slot && elements_.at(*slot).enabled ? slot : std::nullopt;
}

PointerEvent PointerRouter::eventAt(const PointerState& pointer, MouseButton button) const {
    PointerEvent event{.element = std::nullopt,
                       .x = pointer.x,
                       .y = pointer.y,
                       .windowX = pointer.x,
                       .windowY = pointer.y,
                       .button = button,
                       .leftHeld = pointer.leftHeld,
                       .rightHeld = pointer.rightHeld,
                       .modifiers = pointer.modifiers};
    const auto slot = pressed_ ? pressed_ : elements_.topmostAt(pointer.x, pointer.y);
    if (slot && elements_.at(*slot).enabled) {
        const Element& element = elements_.at(*slot);
        event.element = elements_.address(*slot);
        event.x -= element.left;
        event.y -= element.top;
    }
    return event;
}

} // namespace tovik::ui
