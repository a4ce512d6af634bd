// SPDX-License-Identifier: GPL-3.0-or-later
// The second phase of the start: settings, device, window.
#include "app/AppRig.h"

namespace tovik::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using window::MainElement;

class Load : public AppRig {
protected:
    [[nodiscard]] const ui::Element& element(MainElement name, std::size_t index = 0) {
        return player().elements().get(name, index);
    }
};

TEST_F(Load, theOrderOfAStart) {
    start();
    EXPECT_THAT(sound_.calls,
                ElementsAre("on the task bar", "BASS_GetVersion()", "BASS_RecordInit(0)",
                            "BASS_Init(1, 44100, 0, 77, 0)", "BASS_RecordGetInputName(0)",
                            "BASS_RecordSetInput(131072)", "BASS_RecordStart(44100, 2, 0)",
                            "moved to 100 100", "window shown", "not on top", "caption Tovik 0.1"));
    EXPECT_TRUE(player().state().LoadFinished);
    EXPECT_TRUE(player().state().NoCommandLine);
    EXPECT_EQ(player().state().CurrentPanel, 1);
    EXPECT_EQ(setting("SHWND"), "77");
    EXPECT_FALSE(host_.endStatus);
    EXPECT_THAT(host_.programs.starts, IsEmpty());
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    EXPECT_THAT(logged(), IsEmpty());
    EXPECT_EQ(std::filesystem::current_path(), std::filesystem::canonical(host_.folder.path()));
}

TEST_F(Load, settingsGoIntoTheState) {
    for (const auto& [key, text] : {std::pair{"MI", "1"},
                                    {"AP", "1"},
                                    {"SHI", "01"},
                                    {"CVL", "33"},
                                    {"CFD", "1"},
                                    {"SLD", "1"},
                                    {"SHF", "1"},
                                    {"EQ", "1"},
                                    {"BLV", "-50"},
                                    {"RPT", "1"},
                                    {"CVP", "3"},
                                    {"CLNG", "Deutsch"},
                                    {"MSN", "1"},
                                    {"TMD", "1"}}) {
        set(key, text);
    }
    start();
    const player::PlayerState& state = player().state();
    EXPECT_EQ(state.MultipleInstances, 1);
    EXPECT_TRUE(state.ShowSplash);
    EXPECT_EQ(state.ShowInTaskbar, 0);
    EXPECT_EQ(state.CurrentVolume, 33);
    EXPECT_TRUE(state.CrossfadeOn);
    EXPECT_TRUE(state.SilenceSkipOn);
    EXPECT_TRUE(state.ShuffleOn);
    EXPECT_TRUE(state.EqualizerOn);
    EXPECT_EQ(state.BalanceValue, -50);
    EXPECT_TRUE(state.RepeatOn);
    EXPECT_EQ(state.CurrentVisPlugin, 3);
    EXPECT_EQ(state.LanguageFile, "Deutsch");
    EXPECT_TRUE(state.MessengerOn);
    EXPECT_EQ(state.TimeDisplayMode, 1);
    EXPECT_THAT(sound_.calls, Contains("not on the task bar"));
}

TEST_F(Load, anotherSoundLibraryIsRefused) {
    sound_.version = 0x00010002;
    start();
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].text, "BASS version 2.0 was not loaded");
    EXPECT_EQ(host_.dialogs.boxes[0].title, "BASS.DLL");
    EXPECT_EQ(host_.dialogs.boxes[0].icon, host::MessageIcon::Critical);
    EXPECT_TRUE(host_.endStatus);
    EXPECT_EQ(sound_.calls.back(), "BASS_GetVersion()");
    EXPECT_FALSE(player().state().LoadFinished);
}

TEST_F(Load, aRefusedDeviceEndsTheProgram) {
    sound_.hasDevice = false;
    start();
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].text, "Can't initialize device");
    EXPECT_EQ(host_.dialogs.boxes[0].title, "BASS.DLL");
    EXPECT_EQ(host_.dialogs.boxes[0].icon, host::MessageIcon::Critical);
    EXPECT_TRUE(host_.endStatus);
    EXPECT_EQ(sound_.calls.back(), "BASS_Init(1, 44100, 0, 77, 0)");
    advance(1000);
    EXPECT_EQ(sound_.calls.back(), "BASS_Init(1, 44100, 0, 77, 0)");
}

TEST_F(Load, theFirstInputThatCarriesTheMixIsSwitchedOn) {
    sound_.inputs = {"Microphone", "Stereo Outer", "WAVE OUT Mix", "Stereo Out"};
    start();
    EXPECT_EQ(callsOf("BASS_RecordGetInputName"), 3U);
    EXPECT_THAT(sound_.calls, Contains("BASS_RecordSetInput(131074)"));
    EXPECT_EQ(callsOf("BASS_RecordSetInput"), 1U);
    EXPECT_EQ(callsOf("BASS_RecordStart"), 1U);
}

TEST_F(Load, aMonoMixWillDo) {
    sound_.inputs = {"mono out"};
    start();
    EXPECT_THAT(sound_.calls, Contains("BASS_RecordSetInput(131072)"));
}

TEST_F(Load, withoutSuchAnInputTheWalkEndsBehindTheLast) {
    sound_.inputs = {"Microphone", "Line In"};
    start();
    EXPECT_EQ(callsOf("BASS_RecordGetInputName"), 3U);
    EXPECT_EQ(callsOf("BASS_RecordSetInput"), 0U);
    EXPECT_EQ(callsOf("BASS_RecordStart"), 1U);
}

TEST_F(Load, theVolumeIsShown) {
    set("CVL", "25");
    start();
    EXPECT_DOUBLE_EQ(element(MainElement::volbarIMG).height,
                     element(MainElement::volbar).height / 4);
    EXPECT_EQ(player().state().CurrentVolume, 25);
}

TEST_F(Load, theModesAreShown) {
    set("CFD", "1");
    set("SHF", "1");
    set("TMD", "1");
    start();
    EXPECT_TRUE(element(MainElement::CfdBT).checked);
    EXPECT_TRUE(element(MainElement::CFD).visible);
    EXPECT_FALSE(element(MainElement::CFD2).visible);
    EXPECT_FALSE(element(MainElement::sldBT).checked);
    EXPECT_FALSE(element(MainElement::Sld).visible);
    EXPECT_TRUE(element(MainElement::sld2).visible);
    EXPECT_TRUE(element(MainElement::ShuffleBT).checked);
    EXPECT_TRUE(element(MainElement::Shuffle).visible);
    EXPECT_FALSE(element(MainElement::ShuffleDown).visible);
    EXPECT_FALSE(element(MainElement::LoopBT).checked);
    EXPECT_FALSE(element(MainElement::loopImg).visible);
    EXPECT_TRUE(element(MainElement::LoopImg2).visible);
    EXPECT_TRUE(element(MainElement::timed, 0).visible);
}

TEST_F(Load, theQuickListIsClosedUnlessTheSettingIsOne) {
    start();
    EXPECT_FALSE(player().state().QuickListOpen);
    EXPECT_EQ(element(MainElement::List1).top, 169);
    EXPECT_TRUE(element(MainElement::infoWin).visible);
}

TEST_F(Load, orOpen) {
    set("QPL", "1");
    start();
    EXPECT_TRUE(player().state().QuickListOpen);
    EXPECT_EQ(element(MainElement::List1).top, 60);
    EXPECT_FALSE(element(MainElement::infoWin).visible);
}

TEST_F(Load, onTopOrNot) {
    for (const auto& [text, call] :
         {std::pair{"1", "on top"}, {"2", "not on top"}, {"0", "not on top"}}) {
        SCOPED_TRACE(text);
        AppRig::set("ASOT", text);
        app::frmPlayer again(host_.host(), sound_, window_, windows_, news_, options_);
        sound_.calls.clear();
        again.Form_Load();
        EXPECT_THAT(sound_.calls, Contains(call));
        sound_.BASS_Free();
    }
}

TEST_F(Load, placesAreTwipsAlsoFarToTheRight) {
    set("X", "45000");
    set("Y", "-150");
    start();
    EXPECT_THAT(sound_.calls, Contains("moved to 3000 -10"));
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(Load, theProgramThatAssociatesFileTypes) {
    set("AFS", "1");
    set("SFA", "5");
    host_.programs.present = {"Tkstart.exe"};
    start();
    EXPECT_THAT(host_.programs.starts, ElementsAre(RecordingPrograms::Start{"Tkstart.exe", {"5"}}));
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(Load, theProgramThatLooksForUpdates) {
    set("CHKU", "1");
    set("TKXV", "3,27");
    set("TKV2", "9");
    host_.programs.present = {"update.exe"};
    start();
    EXPECT_THAT(host_.programs.starts,
                ElementsAre(RecordingPrograms::Start{"update.exe", {"chk4update=3.27.9"}}));
    EXPECT_EQ(window_.caption, "Tovik 3.9");
}

TEST_F(Load, helpersThatAreNotThereAreLoggedAndTheStartGoesOn) {
    set("AFS", "1");
    set("CHKU", "1");
    start();
    EXPECT_THAT(logged(), ElementsAre("File not found: Tkstart.exe,53,Player,Load",
                                      "File not found: update.exe,53,Player,Load"));
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    EXPECT_EQ(window_.caption, "Tovik 0.1") << "the steps behind them were taken";
}

TEST_F(Load, otherNumbersStartNoProgram) {
    set("AFS", "2");
    set("CHKU", "-1");
    start();
    EXPECT_THAT(host_.programs.starts, IsEmpty());
}

} // namespace
} // namespace tovik::test
