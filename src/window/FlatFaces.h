// SPDX-License-Identifier: GPL-3.0-or-later
// The faces of buttons with a single picture: lighter under the mouse, darker while pressed.
// Interface thread.
#pragma once

#include "ui/WindowInput.h"
#include "window/MainElements.h"

#include <functional>
#include <optional>
#include <utility>

namespace tovik::window {

/// Is told what the mouse does, and gives the records their shades. Other elements are none of its
/// business.
class FlatFaces {
public:
    /// `isFlat` tells the buttons; `elements` outlives the object.
    FlatFaces(ui::ElementStore& elements, std::function<bool(ui::ElementAddress)> isFlat)
        : elements_(elements), isFlat_(std::move(isFlat)) {}

    /// Those of the main window.
    explicit FlatFaces(MainElements& elements);

    void pointerEntered(ui::ElementAddress element);
    void pointerLeft(ui::ElementAddress element);
    void mouseDown(const ui::PointerEvent& event);
    /// A button is dark only while the pointer is on it: released elsewhere, it does nothing.
    void mouseMove(const ui::PointerEvent& event);
    void mouseUp(const ui::PointerEvent& event);

private:
    void show(ui::ElementAddress element, ui::Shade shade);
    [[nodiscard]] bool isOn(const ui::PointerEvent& event, ui::ElementAddress element) const;

    ui::ElementStore& elements_;
    std::function<bool(ui::ElementAddress)> isFlat_;
    std::optional<ui::ElementAddress> pressed_;
};

} // namespace tovik::window
