// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/ModeFaces.h"

#include <array>
#include <cstddef>

namespace tovik::player {

namespace {

using ui::MainElement;

struct Faces {
    MainElement button;
    std::size_t pressed; ///< index in `Image6`
    std::size_t plain;   ///< index in `Image8`
    MainElement indicatorOn;
    MainElement indicatorOff;
};

/// In the order of `Mode`.
constexpr std::array kFaces = {
    Faces{MainElement::ShuffleBT, 4, 0, MainElement::Shuffle, MainElement::ShuffleDown},
    Faces{MainElement::LoopBT, 5, 1, MainElement::loopImg, MainElement::LoopImg2},
    Faces{MainElement::CfdBT, 6, 2, MainElement::CFD, MainElement::CFD2},
    Faces{MainElement::sldBT, 7, 3, MainElement::Sld, MainElement::sld2},
};

} // namespace

void showMode(ui::MainElements& elements, Mode mode, bool on) {
    const Faces& faces = kFaces.at(static_cast<std::size_t>(mode));
    const ui::Picture picture = on ? elements.get(MainElement::Image6, faces.pressed).picture
                                   : elements.get(MainElement::Image8, faces.plain).picture;
    ui::Element& button = elements.touch(faces.button);
    button.picture = picture;
    button.checked = on;
    elements.touch(faces.indicatorOn).visible = on;
    elements.touch(faces.indicatorOff).visible = !on;
}

} // namespace tovik::player
