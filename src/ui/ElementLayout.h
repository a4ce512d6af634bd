// SPDX-License-Identifier: GPL-3.0-or-later
// How the elements of a window are named and how a table says where they stand. Any thread.
#pragma once

#include "ui/Element.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tovik::ui {

/// An element of any window: the number of its name in that window's enum, and its index among
/// those of the name. A handler turns it back with `as`.
struct ElementAddress {
    std::uint16_t name = 0;
    std::uint16_t index = 0;

    template <typename Name>
    [[nodiscard]] constexpr Name as() const noexcept {
        return static_cast<Name>(name);
    }

    friend constexpr bool operator==(const ElementAddress&, const ElementAddress&) = default;
};

template <typename Name>
[[nodiscard]] constexpr ElementAddress addressOf(Name name, std::size_t index = 0) noexcept {
    // An index too large for the type must not turn into a small one.
    constexpr std::size_t kLargest = 0xFFFF;
    return {static_cast<std::uint16_t>(name),
            static_cast<std::uint16_t>(index < kLargest ? index : kLargest)};
}

/// One row of a layout: `count` elements of one name, from index `first` on, each `stepLeft` and
/// `stepTop` skin pixels from the one before. The rows of a layout stand in z-order, the rearmost
/// first; together they give each name the indices 0, 1, 2 ... without a gap.
template <typename Name>
struct ElementPlace {
    Name name{};
    std::size_t first = 0;
    std::size_t count = 1;
    ElementKind kind = ElementKind::Image;
    Box box{};
    double stepLeft = 0;
    double stepTop = 0;
    bool visible = true;
    bool takesMouse = true;
    bool checked = false;
    bool wraps = false;
    double textHeight = 11;
    double barHeight = 0; ///< of a slider
    std::string_view caption{};
    Colour textColour{};
    std::optional<Colour> backColour{};
};

/// The record of the row's element number `offset`, from 0 to `count` - 1.
template <typename Name>
[[nodiscard]] Element elementAt(const ElementPlace<Name>& place, std::size_t offset) {
    const auto steps = static_cast<double>(offset);
    Element element;
    element.kind = place.kind;
    element.left = place.box.left + steps * place.stepLeft;
    element.top = place.box.top + steps * place.stepTop;
    element.width = place.box.width;
    element.height = place.box.height;
    element.visible = place.visible;
    element.takesMouse = place.takesMouse;
    element.checked = place.checked;
    element.wraps = place.wraps;
    element.textHeight = place.textHeight;
    element.bar.height = place.barHeight;
    element.caption = place.caption;
    element.textColour = place.textColour;
    element.backColour = place.backColour;
    return element;
}

} // namespace tovik::ui
