// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MainAccess.h"

#include "window/AccessRows.h"

#include <array>

namespace tovik::window {

namespace {

using N = MainElement;
using enum ui::ElementRole;

using Row = AccessRow<N>;

constexpr auto kRows = std::to_array<Row>({
    // The tabs and the window's buttons.
    {N::mainbt, Tab},
    {N::eqbt, Tab},
    {N::plbt, Tab},
    {N::ripbt, Tab},
    {N::irtbt, Tab},
    {N::prebt, Button},
    two(N::minmodeUP, Button, N::minmodeDown),
    two(N::minon, Button, N::minoff),
    two(N::closeup, Button, N::closedown),
    // The display. Number 0 of the digits is the minus sign.
    {.name = N::timed, .role = Button, .first = 1, .parts = 5},
    {N::songname, Field},
    {N::Picture1, Picture},
    two(N::mono_img, Field, N::Stereo_img),
    {N::musicinfo_img, Field},
    several(N::shwchange, Field, 2),
    {N::stopNote, Label},
    {N::notice_img, Label},
    two(N::Shuffle, Lamp, N::ShuffleDown),
    two(N::loopImg, Lamp, N::LoopImg2),
    two(N::CFD, Lamp, N::CFD2),
    two(N::Sld, Lamp, N::sld2),
    // The main panel.
    several(N::lblPos, Label, 4),
    two(N::posbar, Slider, N::track),
    {N::volbar, Slider},
    {.name = N::balbar, .role = Slider, .parts = 9},
    {N::ShuffleBT, Toggle},
    {N::LoopBT, Toggle},
    {N::CfdBT, Toggle},
    {N::sldBT, Toggle},
    several(N::lbltag, Label, 5),
    several(N::lblinfo, Field, 5),
    {N::lblRDinfo, Field},
    {.name = N::lblPos, .role = Label, .first = 4},
    {N::qpl_but, Toggle},
    {N::List1, Control},
    // The equalizer's.
    {N::eqHeading, Label},
    several(N::eq_sld, Slider, 11),
    {N::eq_val, Label},
    two(N::EQ_on, Toggle, N::EQ_off),
    {N::presetbt, Button},
    {N::resetbt, Button},
    // The playlist's.
    {N::stdSS, Control},
    {N::addfileIMG, Button},
    {N::adddirIMG, Button},
    {N::addlocIMG, Button},
    {N::delIMG, Button},
    {N::clrIMG, Button},
    {N::loadImg, Button},
    {N::SaveImg, Button},
    {N::musicSearchTxt, Control},
    // The ripper's.
    {N::slDRV, Label},
    {N::cmbCDDrives, Control},
    {N::lstTracks, Control},
    {N::ripperbt, Button},
    {N::cancelrip, Button},
    {N::riplbl, Field},
    // The radio's.
    {N::RadioLst, Control},
    several(N::Image1, Button, 5),
    // The transport and what stands below.
    two(N::backupIMG, Button, N::backdownIMG),
    two(N::playup, Button, N::playdown),
    two(N::pauseup, Button, N::pausedown),
    two(N::stopup, Button, N::stopdown),
    two(N::nextup, Button, N::nextdown),
    two(N::fileup, Button, N::filedown),
    {N::Label2, Label},
    {N::Text4, KeyHolder},
});

} // namespace

std::vector<ui::AccessPlace> mainAccess() {
    return accessPlaces<N>(kRows);
}

} // namespace tovik::window
