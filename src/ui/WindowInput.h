// SPDX-License-Identifier: GPL-3.0-or-later
// What a user does to a window, told in elements and skin pixels. The widget calls, the window's
// logic answers. Interface thread.
#pragma once

#include "ui/ElementLayout.h"

#include <optional>

namespace tovik::ui {

enum class MouseButton : std::uint8_t { None, Left, Right, Middle };

struct Modifiers {
    bool shift = false;
    bool control = false;
    bool alt = false;

    friend constexpr bool operator==(const Modifiers&, const Modifiers&) = default;
};

struct PointerEvent {
    /// The topmost element under the pointer that is visible and takes the mouse; nothing when it
    /// is disabled. From a press to the last release it is the element that was pressed, wherever
    /// the pointer is and even when it is hidden since.
    std::optional<ElementAddress> element;
    double x = 0; ///< from the element's left edge as it stands now, in skin pixels
    double y = 0; ///< from its top edge
    double windowX = 0;
    double windowY = 0;
    MouseButton button = MouseButton::None; ///< what went down or up; none when moving
    bool leftHeld = false;
    bool rightHeld = false;
    Modifiers modifiers{};

    /// Whether the pointer is over that name (at any index).
    template <typename Name>
    [[nodiscard]] constexpr bool over(Name name) const noexcept {
        return element && element->template as<Name>() == name;
    }
};

struct KeyEvent {
    /// The number of the key as the published virtual-key codes have it: letters and digits are
    /// their capital ASCII codes, F1 is 0x70, Left 0x25. 0 is a key without a number.
    int code = 0;
    Modifiers modifiers{};
    bool repeated = false; ///< comes from holding the key
};

/// Every call is made through the program's dispatcher, so a handler may raise errors.
class WindowInput {
public:
    virtual ~WindowInput() = default;
    WindowInput(const WindowInput&) = delete;
    WindowInput& operator=(const WindowInput&) = delete;

    virtual void mouseDown(const PointerEvent& /*event*/) {}

    virtual void mouseMove(const PointerEvent& /*event*/) {}

    virtual void mouseUp(const PointerEvent& /*event*/) {}

    /// Comes after the `mouseDown` of the second press and before its `mouseUp`.
    virtual void doubleClick(const PointerEvent& /*event*/) {}

    /// `notches` is positive away from the user; fine wheels give fractions.
    virtual void wheel(const PointerEvent& /*event*/, double /*notches*/) {}

    /// The pointer came over another element; `mouseMove` follows. Not while a button is held.
    virtual void pointerEntered(ElementAddress /*element*/) {}

    virtual void pointerLeft(ElementAddress /*element*/) {}

    /// Whether the key was used; an unused one goes on to the window system.
    virtual bool keyDown(const KeyEvent& /*event*/) { return false; }

    /// Whether a key is to come here before the element that has the keyboard may use it.
    [[nodiscard]] virtual bool claimsKey(const KeyEvent& /*event*/) const { return false; }

    /// The window stands elsewhere on the screen.
    virtual void windowMoved() {}

    /// The user asked to close the window. It stays open until the logic hides it.
    virtual void closeRequested() {}

protected:
    WindowInput() = default;
};

} // namespace tovik::ui
