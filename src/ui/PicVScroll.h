// SPDX-License-Identifier: GPL-3.0-or-later
// The vertical slider as logic: a bar that slides over a back. What it shows is an element of the
// kind `Slider`; a window draws that, and tells presses and moves. Interface thread.
#pragma once

#include "host/Dialogs.h"
#include "ui/ElementStore.h"
#include "ui/WheelNotches.h"
#include "ui/WindowInput.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace tovik::ui {

/// The values of a slider: the least one at the top.
struct SliderRange {
    std::int32_t Min = 0;
    std::int32_t Max = 100;
    std::int32_t Value = 0;
};

class PicVScroll {
public:
    /// Elements and dialogs outlive the slider. The bar is not drawn until something moves it.
    PicVScroll(ElementStore& elements, ElementAddress address, host::Dialogs& dialogs,
               SliderRange range = {}) noexcept
        : elements_(elements), address_(address), dialogs_(dialogs), range_(range) {}

    // What it tells. The errors of a listener reach who moved the bar.
    std::function<void()> Change;
    std::function<void()> RightClick;
    std::function<void(const PointerEvent&)> MouseDown; ///< after each press but the right button's

    // Properties ---------------------------------------------------------------------------------

    [[nodiscard]] std::optional<Colour> BackColor() const { return element().backColour; }

    void BackColor(std::optional<Colour> colour);

    /// The bar's picture and its height in skin pixels.
    [[nodiscard]] SliderBar Bar() const { return element().bar; }

    void Bar(ui::Picture picture, double height);

    /// The back. The window draws back and bar anew each time, so one copy of it is enough.
    [[nodiscard]] ui::Picture Picture() const { return element().picture; }

    void Picture(ui::Picture picture);

    [[nodiscard]] std::int32_t Max() const noexcept { return range_.Max; }

    /// A maximum below the value is refused with a box.
    void Max(std::int32_t maximum);

    [[nodiscard]] std::int32_t Min() const noexcept { return range_.Min; }

    /// A minimum above the value is refused with a box.
    void Min(std::int32_t minimum);

    [[nodiscard]] std::int32_t Value() const noexcept { return range_.Value; }

    /// Moves the bar and tells the change, also when it is none. A value outside the limits is
    /// refused with a box.
    void Value(std::int32_t value);

    // State --------------------------------------------------------------------------------------

    [[nodiscard]] std::int32_t BarTop() const noexcept { return BarTop_; }

    [[nodiscard]] bool Dragging() const noexcept { return Dragging_; }

    /// Shows the bar. With `redrawn` where the value puts it, else where it is.
    void DrawBar(bool redrawn);

    // The mouse, with its place in the element in skin pixels
    // --------------------------------------

    void mouseDown(const PointerEvent& event);
    void mouseMove(const PointerEvent& event);
    void mouseUp(const PointerEvent& event);

    /// Puts the bar in the middle; the press that it ends does not drag any more.
    void doubleClick();

    /// A turn of the wheel: a value a whole notch, towards the top when positive.
    void turn(double notches);

private:
    [[nodiscard]] const Element& element() const {
        return elements_.at(elements_.slotOf(address_));
    }

    /// How far the bar's top can go down.
    [[nodiscard]] double room() const { return element().height - element().bar.height; }

    void ValueFromBar();
    void BarFromValue();
    void placeBar(double y);
    void follow(const PointerEvent& event);
    void refuse(const char* text);
    void changed() const;

    ElementStore& elements_;
    ElementAddress address_;
    host::Dialogs& dialogs_;
    SliderRange range_;
    std::int32_t BarTop_ = 0; ///< in skin pixels, 0 at the top
    bool Dragging_ = false;
    WheelNotches wheel_;
};

} // namespace tovik::ui
