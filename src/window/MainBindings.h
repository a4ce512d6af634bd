// SPDX-License-Identifier: GPL-3.0-or-later
// Which file of the skin gives which element of the main window its picture, and in which order.
// Any thread.
#pragma once

#include "window/MainElements.h"

#include <cstddef>
#include <span>
#include <string_view>

namespace tovik::window {

/// An element, one of those of its name.
struct Slot {
    MainElement name{};
    std::size_t index = 0;

    friend constexpr bool operator==(const Slot&, const Slot&) = default;
};

/// One step: a file's picture for an element, or a copy of another element's.
struct Binding {
    std::string_view file; ///< without ".bmp"; empty: a copy
    Slot to;
    Slot from{};            ///< of a copy
    bool takesSize = false; ///< the element becomes as large as its picture
};

/// All steps, first to last. What follows a bad file is not done.
[[nodiscard]] std::span<const Binding> mainBindings() noexcept;

/// A button of the transport or the window: up and down are two elements on one spot, its other
/// looks lie in stores.
struct ButtonFace {
    MainElement up;
    MainElement down;
    Slot over;
    Slot saved; ///< the up face
};

[[nodiscard]] std::span<const ButtonFace> buttonFaces() noexcept;

/// A further picture that is kept once the skin is bound.
struct KeptFace {
    MainElement element;
    Slot saved;
};

[[nodiscard]] std::span<const KeptFace> keptFaces() noexcept;

} // namespace tovik::window
