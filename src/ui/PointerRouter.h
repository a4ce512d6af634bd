// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the element that a pointer's move or press is about and tells the window's logic: topmost
// first, and whoever was pressed keeps the pointer until the last release. Interface thread.
#pragma once

#include "ui/ElementStore.h"
#include "ui/WindowInput.h"

namespace tovik::ui {

/// What a widget knows of its pointer, in skin pixels of the window.
struct PointerState {
    double x = 0;
    double y = 0;
    bool leftHeld = false;
    bool rightHeld = false;
    bool anyHeld = false; ///< these or any further button
    Modifiers modifiers{};
};

class PointerRouter {
public:
    PointerRouter(const ElementStore& elements, WindowInput& input) noexcept
        : elements_(elements), input_(input) {}

    void moved(const PointerState& pointer);

    /// `pointer` is as it is after the press. `twice`: it is the second of a double click.
    void pressed(const PointerState& pointer, MouseButton button, bool twice);

    /// `pointer` is as it is after the release.
    void released(const PointerState& pointer, MouseButton button);

    void turned(const PointerState& pointer, double notches);

    /// The pointer left the window or came over a child widget that stands for that element.
    void hover(std::optional<std::size_t> slot);

    /// The slot that the pointer is over.
    [[nodiscard]] std::optional<std::size_t> hovered() const noexcept { return hovered_; }

private:
    void forgetLostPress(const PointerState& pointer) noexcept;
    /// The slot under the pointer, if it is enabled.
    [[nodiscard]] std::optional<std::size_t> enabledAt(const PointerState& pointer) const;
    [[nodiscard]] PointerEvent eventAt(const PointerState& pointer, MouseButton button) const;

    const ElementStore& elements_;
    WindowInput& input_;
    std::optional<std::size_t> pressed_;
    std::optional<std::size_t> hovered_;
};

} // namespace tovik::ui
