// SPDX-License-Identifier: GPL-3.0-or-later
// The main window `frmPlayer`: what its elements are called and where each one stands. All five
// panels live in the same window, so elements of different panels share places. Any thread.
#pragma once

#include "ui/ElementTable.h"

#include <cstdint>
#include <span>

namespace tovik::window {

enum class MainElement : std::uint16_t {
    // The window and its areas.
    mainIMG,
    ScreenIMG,
    infoWin,
    fxWin,
    poswin,
    volwin,
    balwin,
    iconIMG,
    Label2, ///< the program's name
    // The display.
    timed, ///< 6: sign, two digits, colon, two digits
    songname,
    Picture1, ///< where the spectrum is drawn
    mono_img,
    Stereo_img,
    musicinfo_img,
    shwchange,  ///< 2: volume and balance as words
    stopNote,   ///< shown while the player is to stop after the track
    notice_img, ///< what the user is to know of the program's state
    Shuffle,    ///< the four indicators, each with its dim twin
    ShuffleDown,
    loopImg,
    LoopImg2,
    CFD,
    CFD2,
    Sld,
    sld2,
    // The track's fields and the headings of the areas.
    Line1,
    Line2,
    Line3,
    Line4,
    Line5,
    lblPos,  ///< 5
    lbltag,  ///< 5
    lblinfo, ///< 5: artist, title, album, year, genre
    lblRDinfo,
    // Bars.
    posbar,
    track, ///< the mark of the position
    volbar,
    volbarIMG, ///< the fill of the volume
    balbar,    ///< 9
    // Buttons; an up face has its down face on the same spot.
    backupIMG,
    backdownIMG,
    playup,
    playdown,
    pauseup,
    pausedown,
    stopup,
    stopdown,
    nextup,
    nextdown,
    fileup,
    filedown,
    closeup,
    closedown,
    minon,
    minoff,
    minmodeUP,
    minmodeDown,
    ShuffleBT,
    LoopBT,
    CfdBT,
    sldBT,
    qpl_but,
    // The tabs.
    mainbt,
    eqbt,
    plbt,
    ripbt,
    irtbt,
    prebt,
    // The quick list.
    List1,
    // The equalizer's panel.
    Image3,
    Picture6, ///< 13: ten bands, the master, two scales
    eq_sld,   ///< 11: ten bands, the master
    eq_val,   ///< the slider under the pointer, and its decibels
    eqHeading,
    EQ_on,
    EQ_off,
    presetbt,
    resetbt,
    // The playlist's panel.
    stdSS,
    addfileIMG,
    adddirIMG,
    addlocIMG,
    delIMG,
    clrIMG,
    loadImg,
    SaveImg,
    srchIMG,
    musicSearchTxt,
    // The ripper's panel.
    lstTracks,
    slDRV,
    cmbCDDrives,
    ripperbt,
    cancelrip,
    ripbar,  ///< how far the rip is, of all its tracks
    ripfill, ///< the part that is done
    riplbl,  ///< the same as words
    // The radio's panel.
    RadioLst,
    Image1, ///< 5: play, add, remove, and two faces of save on one spot
    // Never shown: the holder of the focus, captions that code asks for, stores of pictures.
    Text4,
    Label3, ///< the words for the volume
    Label4, ///< 9
    tmp,    ///< 17
    Image2, ///< 18
    Image4,
    Image5,
    Image6, ///< 8
    Image8, ///< 4
    Digit,  ///< 10
    qpl_exp,
    qpl_col,
    baron,
    baroff,
    balcnt,
    textImg,
    textImg2,
    songname2,
    Picture2,
    Picture3,
    Picture7,
};

using MainElements = ui::ElementTable<MainElement>;

/// The layout, rearmost first; the first row is the window itself and gives it its size. What is
/// visible in it is the main panel with the modes off.
[[nodiscard]] std::span<const ui::ElementPlace<MainElement>> mainLayout() noexcept;

} // namespace tovik::window
