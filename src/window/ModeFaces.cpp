// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/ModeFaces.h"

#include "window/PanelTable.h"

#include <array>
#include <cstddef>

namespace tovik::window {

namespace {

struct Faces {
    bool player::PlayerState::*flag;
    MainElement button;
    std::size_t pressed; ///< index in `Image6`
    std::size_t plain;   ///< index in `Image8`
    MainElement indicatorOn;
    MainElement indicatorOff;
};

/// In the order of `Mode`.
constexpr std::array kFaces = {
    Faces{&player::PlayerState::ShuffleOn, MainElement::ShuffleBT, 4, 0, MainElement::Shuffle,
          MainElement::ShuffleDown},
    Faces{&player::PlayerState::RepeatOn, MainElement::LoopBT, 5, 1, MainElement::loopImg,
          MainElement::LoopImg2},
    Faces{&player::PlayerState::CrossfadeOn, MainElement::CfdBT, 6, 2, MainElement::CFD,
          MainElement::CFD2},
    Faces{&player::PlayerState::SilenceSkipOn, MainElement::sldBT, 7, 3, MainElement::Sld,
          MainElement::sld2},
};

void showLampsOf(const Faces& faces, MainElements& elements, const player::PlayerState& state) {
    applyPanel(elements, state, faces.indicatorOn);
    applyPanel(elements, state, faces.indicatorOff);
}

} // namespace

void showMode(MainElements& elements, const player::PlayerState& state, player::Mode mode) {
    const Faces& faces = kFaces.at(static_cast<std::size_t>(mode));
    const bool on = state.*faces.flag;
    const ui::Picture picture = on ? elements.get(MainElement::Image6, faces.pressed).picture
                                   : elements.get(MainElement::Image8, faces.plain).picture;
    ui::Element& button = elements.touch(faces.button);
    button.picture = picture;
    button.checked = on;
    showLampsOf(faces, elements, state);
}

void showLamps(MainElements& elements, const player::PlayerState& state) {
    for (const Faces& faces : kFaces) {
        showLampsOf(faces, elements, state);
    }
}

} // namespace tovik::window
