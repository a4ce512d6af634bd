// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MiniActions.h"

#include "window/AccessRows.h"

#include <array>

namespace tovik::window {

namespace {

using N = MiniElement;
using enum ui::ElementRole;

using Row = AccessRow<N>;

constexpr auto kRows = std::to_array<Row>({
    several(N::Image1, Button, 3),
    {N::songname, Field},
    two(N::posbar, Slider, N::track),
    {.name = N::timed, .role = Button, .first = 1, .parts = 5},
    {N::musicinfo_img, Field},
    two(N::mono_img, Field, N::Stereo_img),
    {N::Picture1, Picture},
    several(N::Image4, Button, 6),
    two(N::Shuffle, Lamp, N::ShuffleDown),
    two(N::loopImg, Lamp, N::LoopImg2),
    two(N::CFD, Lamp, N::CFD2),
    two(N::Sld, Lamp, N::sld2),
    {N::volbar, Slider},
    {N::shwchange, Field},
});

} // namespace

ui::ElementFacts MiniActions::factsOf(ui::ElementAddress element) const {
    const auto twin = mainTwinOf(element);
    return twin ? main_.factsOf(*twin) : ui::ElementFacts();
}

void MiniActions::activate(ui::ElementAddress element) {
    if (const auto twin = mainTwinOf(element)) {
        main_.activate(*twin);
    }
}

void MiniActions::adjust(ui::ElementAddress element, ui::Adjustment adjustment) {
    if (const auto twin = mainTwinOf(element)) {
        main_.adjust(*twin, adjustment);
    }
}

void MiniActions::setValue(ui::ElementAddress element, double value) {
    if (const auto twin = mainTwinOf(element)) {
        main_.setValue(*twin, value);
    }
}

std::vector<ui::AccessPlace> miniAccess() {
    return accessPlaces<N>(kRows);
}

} // namespace tovik::window
