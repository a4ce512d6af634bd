// SPDX-License-Identifier: GPL-3.0-or-later
// What a window is made of, as data: one record an element. Logic reads and writes records, a
// widget shows them. No window system here. Interface thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tovik::ui {

/// How an element is drawn and whether something else stands in its place.
enum class ElementKind : std::uint8_t {
    Image,   ///< its picture; without one its caption, or a panel of its back colour
    Label,   ///< its caption
    Button,  ///< its picture; without one a box with its caption
    Bar,     ///< its picture; without one a groove, or one filled with its text colour when checked
    Slider,  ///< like an empty bar, with the slider's own bar on it
    Control, ///< a child widget of the window, placed by the record
};

/// How much light a picture gets beside its own: one picture gives a button three faces.
enum class Shade : std::uint8_t {
    None,
    Lighter, ///< the pointer is over it
    Darker,  ///< it is pressed
};

struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend constexpr bool operator==(const Colour&, const Colour&) = default;
};

/// A picture of a `PictureStore`. The version grows whenever the picture's pixels change, so that
/// two equal values always look the same. Number 0 is no picture.
struct Picture {
    std::uint32_t number = 0;
    std::uint32_t version = 0;

    [[nodiscard]] constexpr explicit operator bool() const noexcept { return number != 0; }

    friend constexpr bool operator==(const Picture&, const Picture&) = default;
};

/// A rectangle in skin pixels from the window's top left corner; right and bottom edges lie
/// outside. Not every place is a whole number.
struct Box {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    [[nodiscard]] constexpr bool contains(double x, double y) const noexcept {
        return x >= left && x < left + width && y >= top && y < top + height;
    }

    friend constexpr bool operator==(const Box&, const Box&) = default;
};

/// The bar that slides over an element of the kind `Slider`.
struct SliderBar {
    double top = 0; ///< from the element's top edge, in skin pixels
    double height = 0;
    Picture picture; ///< without one it is drawn plainly, as wide as the element

    friend constexpr bool operator==(const SliderBar&, const SliderBar&) = default;
};

struct Element {
    ElementKind kind = ElementKind::Image;
    double left = 0; ///< this and the next three in skin pixels
    double top = 0;
    double width = 0;
    double height = 0;
    bool visible = true;
    bool enabled = true;    ///< otherwise it is drawn pale, and what the mouse does on it is lost
    bool takesMouse = true; ///< otherwise the mouse goes to what lies below
    Shade shade = Shade::None;
    bool checked = false; ///< pressed, on or filled, where no picture says so
    bool wraps = false;   ///< the caption may take several lines
    /// The height of the caption's font, in skin pixels.
    double textHeight = 11;
    std::string caption; ///< bytes: valid UTF-8, or else Windows-1252
    std::string tooltip; ///< bytes likewise
    std::string name;    ///< what a screen reader calls it; bytes likewise, empty: tooltip, caption
    Picture picture;
    std::string smallText; ///< drawn small in place of picture and caption; bytes likewise
    SliderBar bar;         ///< of a slider
    Colour textColour;     ///< also that of a slider's plain bar
    std::optional<Colour> backColour; ///< nothing: what lies below shows through

    [[nodiscard]] constexpr Box box() const noexcept { return {left, top, width, height}; }

    friend bool operator==(const Element&, const Element&) = default;
};

} // namespace tovik::ui
