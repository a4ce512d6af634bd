// SPDX-License-Identifier: GPL-3.0-or-later
// What the rows of the main window's layout have in common: colours, sizes, kinds of rows, and the
// symbols that buttons bear while they have no picture. Any thread.
#pragma once

#include "ui/ElementLayout.h"
#include "window/MainElements.h"

namespace tovik::window::rows {

using enum ui::ElementKind;
using N = MainElement;
using Place = ui::ElementPlace<MainElement>;

inline constexpr ui::Colour kInk{33, 33, 82};
inline constexpr ui::Colour kBlack{0, 0, 0};
inline constexpr ui::Colour kWhite{255, 255, 255};
inline constexpr ui::Colour kAmber{255, 156, 0};
inline constexpr ui::Colour kDim{96, 100, 140};
inline constexpr ui::Colour kBody{47, 50, 84};
inline constexpr ui::Colour kScreen{13, 15, 32};
inline constexpr ui::Colour kPanel{232, 235, 245};
/// Behind what one types and chooses from: the tint of the lists.
inline constexpr ui::Colour kField{214, 220, 236};
inline constexpr ui::Colour kGroove{176, 182, 208};
inline constexpr ui::Colour kLine{164, 172, 207};
inline constexpr ui::Colour kFace{84, 89, 136};
inline constexpr ui::Colour kFaceSelected{112, 117, 170};

/// A button that has one look, with a caption or a symbol.
constexpr Place button(N name, ui::Box box, std::string_view caption, bool visible = true) {
    return {.name = name,
            .kind = Button,
            .box = box,
            .visible = visible,
            .caption = caption,
            .textColour = kWhite,
            .backColour = kFace};
}

/// The face that a pressed button shows instead.
constexpr Place pressed(N name, ui::Box box, std::string_view caption) {
    return {.name = name,
            .kind = Button,
            .box = box,
            .visible = false,
            .checked = true,
            .caption = caption,
            .textColour = kWhite,
            .backColour = kFaceSelected};
}

constexpr Place area(N name, ui::Box box, ui::Colour colour, bool visible = true) {
    return {.name = name, .box = box, .visible = visible, .backColour = colour};
}

constexpr Place label(N name, std::size_t index, ui::Box box, std::string_view caption,
                      ui::Colour colour, bool visible = true) {
    return {.name = name,
            .first = index,
            .kind = Label,
            .box = box,
            .visible = visible,
            .caption = caption,
            .textColour = colour};
}

/// A field of the display that is drawn into, with a caption as long as it has no picture.
constexpr Place drawn(N name, ui::Box box, std::string_view caption, ui::Colour colour,
                      double textHeight = 10) {
    return {.name = name,
            .box = box,
            .textHeight = textHeight,
            .caption = caption,
            .textColour = colour};
}

constexpr Place indicator(N name, double left, double top, std::string_view caption, bool on) {
    return {.name = name,
            .box = {left, top, 12, 9},
            .visible = !on,
            .takesMouse = false,
            .textHeight = 9,
            .caption = caption,
            .textColour = on ? kAmber : kDim};
}

constexpr Place digit(std::size_t index, double left, std::string_view caption, bool visible) {
    return {.name = N::timed,
            .first = index,
            .box = {left, 52, 14.4, 17},
            .visible = visible,
            .textHeight = 19,
            .caption = caption,
            .textColour = kWhite};
}

constexpr Place control(N name, ui::Box box, bool visible = false) {
    return {.name = name,
            .kind = Control,
            .box = box,
            .visible = visible,
            .textColour = kInk,
            .backColour = kField};
}

constexpr Place store(N name, std::size_t count = 1) {
    return {.name = name, .count = count, .visible = false};
}

/// A caption that is never shown as it stands.
constexpr Place words(N name, std::size_t index, std::string_view caption) {
    return {.name = name, .first = index, .visible = false, .caption = caption};
}

// The symbols a button bears while it has no picture.
inline constexpr std::string_view kPrevious = "\u23EE";
inline constexpr std::string_view kPlay = "\u25B6";
inline constexpr std::string_view kPause = "\u23F8";
inline constexpr std::string_view kStop = "\u23F9";
inline constexpr std::string_view kNext = "\u23ED";
inline constexpr std::string_view kOpen = "\u23CF";
inline constexpr std::string_view kClose = "\u2715";
inline constexpr std::string_view kMinimise = "\u2013";
inline constexpr std::string_view kSmall = "\u25AB";
inline constexpr std::string_view kShuffle = "\U0001F500";
inline constexpr std::string_view kLoop = "\U0001F501";
inline constexpr std::string_view kCrossfade = "\u292D";
inline constexpr std::string_view kSkip = "\u21E5";

constexpr ui::Box transport(double left) {
    return {left, 270, 30, 26};
}

constexpr ui::Box corner(double left) {
    return {left, 10, 18, 16};
}

constexpr ui::Box mode(double left) {
    return {left, 242, 28, 22};
}

constexpr ui::Box tab(double left) {
    return {left, 9, 22, 22};
}

constexpr ui::Box listButton(double left) {
    return {left, 242, 36, 22};
}

constexpr ui::Box wideButton(double left) {
    return {left, 242, 56, 22};
}

inline constexpr ui::Box kWholePanel{20, 45, 432, 190};

} // namespace tovik::window::rows
