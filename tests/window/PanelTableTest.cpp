// SPDX-License-Identifier: GPL-3.0-or-later
// What is visible on each panel, element by element, for every state that decides about it.
#include "window/MainButtons.h"
#include "window/Panels.h"
#include "window/PanelsRig.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace tovik::window {
namespace {

using N = MainElement;

/// One line of the table as users see it: 'Y' shown, 'n' hidden, '-' as before, a letter in lower
/// case for a mode that shows it, the same in upper case for one that hides it.
///   c crossfade, l loop, s shuffle, k silence skip, p ripping, e equalizer, r radio, t counting
///   down, w recording a station, a stopping after the track, q quick list
///   open
struct Line {
    std::vector<N> names;
    std::string on; ///< five characters, by panel
    std::size_t first = 0;
    std::size_t last = 99;
};

const std::vector<Line>& lines() {
    static const std::vector<Line> kLines = {
        {{N::qpl_but}, "Ynnnn"},
        {{N::ShuffleBT, N::LoopBT, N::CfdBT, N::sldBT}, "Ynnnn"},
        {{N::cancelrip}, "nnnpn"},
        {{N::shwchange, N::notice_img, N::List1}, "Ynnnn"},
        {{N::resetbt}, "nYnnn"},
        {{N::adddirIMG, N::addfileIMG, N::addlocIMG, N::delIMG, N::clrIMG, N::loadImg, N::SaveImg,
          N::srchIMG, N::musicSearchTxt},
         "nnYnn"},
        {{N::CFD}, "cncnn"},
        {{N::CFD2}, "CnCnn"},
        {{N::loopImg}, "lnlnn"},
        {{N::LoopImg2}, "LnLnn"},
        {{N::Shuffle}, "snsnn"},
        {{N::ShuffleDown}, "Snnnn"},
        {{N::Sld}, "knnnn"},
        {{N::sld2}, "Knnnn"},
        {{N::ScreenIMG, N::poswin, N::balwin, N::volwin, N::Picture1, N::Line1, N::Line2, N::Line3,
          N::Line4, N::Line5, N::posbar, N::track, N::volbar, N::volbarIMG},
         "Ynnnn"},
        {{N::fxWin, N::infoWin}, "Qnnnn"},
        {{N::stopNote}, "annnn"},
        {{N::Image3}, "nYnnn"},
        {{N::stdSS}, "nnYnn"},
        {{N::lstTracks, N::slDRV, N::cmbCDDrives, N::ripperbt}, "nnnYn"},
        {{N::RadioLst}, "nnnnY"},
        {{N::Picture6, N::eq_sld, N::presetbt, N::eq_val, N::eqHeading}, "nYnnn"},
        {{N::EQ_on}, "nennn"},
        {{N::EQ_off}, "nEnnn"},
        {{N::musicinfo_img, N::mono_img, N::Stereo_img, N::songname, N::balbar}, "Ynnnn"},
        {{N::timed}, "tnnnn", 0, 0},
        {{N::timed}, "Ynnnn", 1},
        {{N::lbltag, N::lblinfo}, "Rnnnn"},
        {{N::lblPos}, "Ynnnn", 0, 2},
        {{N::lblPos}, "Qnnnn", 3, 3},
        {{N::lblPos}, "Ynnnn", 4},
        {{N::Image1}, "nnnnY", 0, 2},
        {{N::Image1}, "nnnnW", 3, 3},
        {{N::Image1}, "nnnnw", 4, 4},
        {{N::lblRDinfo}, "rnnnn"},
        // In no row: always there.
        {{N::mainIMG, N::iconIMG, N::backupIMG, N::playup, N::pauseup, N::stopup, N::nextup,
          N::fileup, N::minmodeUP, N::minon, N::closeup, N::mainbt, N::eqbt, N::plbt, N::ripbt,
          N::irtbt, N::prebt, N::Label2},
         "-----"},
    };
    return kLines;
}

bool modeOf(const player::PlayerState& state, char letter) {
    switch (letter) {
    case 'c':
        return state.CrossfadeOn;
    case 'l':
        return state.RepeatOn;
    case 's':
        return state.ShuffleOn;
    case 'k':
        return state.SilenceSkipOn;
    case 'p':
        return state.RipRunning;
    case 'e':
        return state.EqualizerOn;
    case 'r':
        return state.RadioMode;
    case 't':
        return state.TimeDisplayMode != 0 && !state.RadioMode;
    case 'a':
        return state.StopAfterCurrent;
    case 'q':
        return state.QuickListOpen;
    case 'w':
        return state.StreamRecording;
    default:
        ADD_FAILURE() << letter;
        return false;
    }
}

bool expected(const player::PlayerState& state, char cell, bool before) {
    if (cell == 'Y') {
        return true;
    }
    if (cell == 'n') {
        return false;
    }
    if (cell == '-') {
        return before;
    }
    const bool inverse = cell >= 'A' && cell <= 'Z';
    return modeOf(state, inverse ? static_cast<char>(cell - 'A' + 'a') : cell) != inverse;
}

constexpr std::array<const char*, kPanels> kMasks = {"10000", "01000", "00100", "00010", "00001"};

/// Bit 0: all modes off or on. Bit 1: all elements hidden or shown before.
class PanelTable : public testing::TestWithParam<int> {
protected:
    [[nodiscard]] static bool modes() { return (GetParam() & 1) != 0; }

    [[nodiscard]] static bool before() { return (GetParam() & 2) != 0; }

    void expectLine(const Line& line, std::size_t panel) const {
        for (const N name : line.names) {
            for (std::size_t i = line.first; i < rig_.elements.count(name) && i <= line.last; ++i) {
                EXPECT_EQ(rig_.elements.get(name, i).visible,
                          expected(rig_.state, line.on.at(panel), before()))
                    << "element " << static_cast<int>(name) << "(" << i << ")";
            }
        }
    }

    PanelsRig rig_;
};

TEST_P(PanelTable, showsWhatEachPanelShows) {
    player::PlayerState& state = rig_.state;
    state.CrossfadeOn = state.RepeatOn = state.ShuffleOn = state.SilenceSkipOn = modes();
    state.RipRunning = state.EqualizerOn = state.RadioMode = state.StreamRecording = modes();
    state.StopAfterCurrent = state.QuickListOpen = modes();
    state.TimeDisplayMode = modes() ? 1 : 0;
    for (std::size_t panel = 0; panel < kPanels; ++panel) {
        SCOPED_TRACE(kMasks.at(panel));
        rig_.showAll(before());
        rig_.panels.Switch_Win(kMasks.at(panel));
        for (const Line& line : lines()) {
            expectLine(line, panel);
        }
    }
}

TEST_P(PanelTable, saysItAllByItself) {
    // Not only at a switch: whoever changes the state applies the table.
    rig_.state.QuickListOpen = modes();
    rig_.showAll(before());
    applyPanel(rig_.elements, rig_.state);
    for (const N name : {N::fxWin, N::infoWin}) {
        EXPECT_EQ(rig_.elements.get(name).visible, !modes());
    }
    EXPECT_EQ(rig_.elements.get(N::lblPos, 3).visible, !modes());
    EXPECT_FALSE(rig_.elements.get(N::RadioLst).visible);
}

TEST(PanelRows, showNoFaceOfAPressedButton) {
    for (const PressButton& button : pressButtons()) {
        for (const PanelRow& row : panelTable()) {
            EXPECT_NE(row.name, button.up);
            EXPECT_NE(row.name, button.down);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AllStates, PanelTable, testing::Range(0, 4));

} // namespace
} // namespace tovik::window
