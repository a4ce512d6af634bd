// SPDX-License-Identifier: GPL-3.0-or-later
// The equalizer in the whole player: start, end, commands, mouse.
#include "app/AppRig.h"

namespace tovik::test {
namespace {

using commands::CommandId;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using window::MainElement;

class EqualizerPanel : public AppRig {
protected:
    /// Replaces the curve in the settings file.
    void setCurve(const std::string& curve) const {
        replace(R"(<CEQ Value="0/0/0/0/0/0/0/0/0/0"/>)", "<CEQ Value=\"" + curve + "\"/>");
    }

    void replace(const std::string& before, const std::string& after) const {
        std::string bytes = host_.folder.read(kSettings);
        const std::size_t place = bytes.find(before);
        ASSERT_NE(place, std::string::npos) << before;
        host_.folder.write(kSettings, bytes.replace(place, before.size(), after));
    }

    [[nodiscard]] bool holds(const std::string& text) const {
        return host_.folder.read(kSettings).find(text) != std::string::npos;
    }

    [[nodiscard]] std::vector<std::int32_t> sliders() {
        std::vector<std::int32_t> values;
        for (std::size_t index = 0; index < 11; ++index) {
            values.push_back(player().tone().equalizer.eq_sld(index));
        }
        return values;
    }

    void play(const std::string& name) {
        player().stdSS().AddItem("", track(name), name, "01:05", 65);
        player().List1().ListIndex(player().List1().ListCount() - 1);
        player().music().playback.rows.List1_DblClick();
    }

    [[nodiscard]] std::vector<float> gains() {
        return sound_.gains(player().state().PrimaryChannel);
    }

    [[nodiscard]] bool visible(MainElement name) { return player().elements().get(name).visible; }

    void click(MainElement name, std::size_t index = 0, double y = 1) {
        const ui::Box box = player().elements().get(name, index).box();
        ui::PointerEvent event;
        event.element = ui::addressOf(name, index);
        event.x = 1;
        event.y = y;
        event.windowX = box.left + 1;
        event.windowY = box.top + y;
        event.button = ui::MouseButton::Left;
        player().input().mouseDown(event);
        player().input().mouseUp(event);
    }
};

TEST_F(EqualizerPanel, theStartRestoresCurveAndMaster) {
    setCurve("12/8.4/1.2/0/-1.2/-3.6/-8.4/-9.6/-10.8/-12");
    set("CDB", "-2.4");
    start();
    EXPECT_THAT(sliders(), ElementsAre(0, 3, 9, 10, 11, 13, 17, 18, 19, 20, 12));
    // The bar of the tests' skin is one pixel high, the slider 129.
    EXPECT_EQ(player().elements().get(MainElement::eq_sld, 0).bar.top, 0);
    EXPECT_EQ(player().elements().get(MainElement::eq_sld, 9).bar.top, 128);
    EXPECT_THAT(logged(), IsEmpty());
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(EqualizerPanel, aFirstStartWithAnEmptyCurveGoesOn) {
    setCurve("");
    start();
    EXPECT_THAT(sliders(), Each(10));
    EXPECT_EQ(player().elements().get(MainElement::eq_sld, 4).bar.top, 64);
    EXPECT_TRUE(player().state().LoadFinished);
    EXPECT_THAT(logged(), IsEmpty());
}

TEST_F(EqualizerPanel, theEndSavesWhatTheNextStartRestores) {
    start();
    player().tone().equalizer.eq_sld(0, 3);
    player().tone().equalizer.eq_sld(9, 19);
    player().tone().equalizer.eq_sld(10, 7);
    player().kill_me();
    EXPECT_TRUE(holds(R"(<CEQ Value="8.4/0/0/0/0/0/0/0/0/-10.8"/>)"));
    EXPECT_EQ(setting("CDB"), "3.6");
    EXPECT_EQ(host_.endStatus, 0);
}

TEST_F(EqualizerPanel, aCurveThatRestsIsStoredBeforeTheEnd) {
    start();
    const std::string before = host_.folder.read(kSettings);
    player().tone().equalizer.eq_sld(0, 3);
    player().tone().equalizer.eq_sld(10, 7);
    advance(200);
    player().tone().equalizer.eq_sld(0, 4);
    advance(200);
    EXPECT_EQ(host_.folder.read(kSettings), before) << "a hand still moves it";
    advance(100);
    EXPECT_TRUE(holds(R"(<CEQ Value="7.2/0/0/0/0/0/0/0/0/0"/>)"));
    EXPECT_EQ(setting("CDB"), "3.6");
}

TEST_F(EqualizerPanel, aCurveThatWasNotReadIsNotStored) {
    takeOut("CDB");
    start();
    ASSERT_FALSE(player().state().LoadFinished);
    const std::string before = host_.folder.read(kSettings);
    player().tone().equalizer.eq_sld(0, 3);
    advance(1000);
    EXPECT_EQ(host_.folder.read(kSettings), before);
}

TEST_F(EqualizerPanel, aTrackIsStartedWithTheCurve) {
    setCurve("12/0/0/0/0/0/0/0/0/-12");
    start();
    play("song.mp3");
    EXPECT_THAT(gains(), ElementsAre(10, 0, 0, 0, 0, 0, 0, 0, 0, -10));
    play("other.mp3");
    EXPECT_THAT(gains(), ElementsAre(10, 0, 0, 0, 0, 0, 0, 0, 0, -10));
    EXPECT_THAT(sound_.effects, SizeIs(10)) << "those of the first track went with it";
}

TEST_F(EqualizerPanel, theButtonsAndSlidersOfThePanel) {
    start();
    play("song.mp3");
    player().view().panels.Switch_Win("01000");
    EXPECT_TRUE(visible(MainElement::EQ_off));
    click(MainElement::eq_sld, 2, 0);
    EXPECT_EQ(gains()[2], 10.0F);
    click(MainElement::EQ_off);
    EXPECT_TRUE(player().state().EqualizerOn);
    EXPECT_TRUE(visible(MainElement::EQ_on));
    EXPECT_FALSE(visible(MainElement::EQ_off));
    click(MainElement::EQ_on);
    EXPECT_THAT(gains(), Each(5));
    EXPECT_FALSE(player().commands().checked(CommandId::equalizer));
    click(MainElement::resetbt);
    EXPECT_THAT(sliders(), Each(10));
    EXPECT_THAT(gains(), Each(0));
}

TEST_F(EqualizerPanel, thePresetCommandsAskTheirWindows) {
    start();
    click(MainElement::presetbt);
    EXPECT_THAT(windows_.opened, IsEmpty()) << "it pops up a menu";
    auto& menus = player().menus().frmTSR.m_Menus;
    EXPECT_TRUE(menus.ItemEnabled(menus.IndexForKey("mnuldpreset")));
    EXPECT_TRUE(menus.ItemKeyAccel(menus.IndexForKey("mnuldpreset"), "Ctrl+L"));
    EXPECT_TRUE(player().input().keyDown({.code = 'L', .modifiers = {.control = true}}));
    EXPECT_THAT(windows_.opened, ElementsAre(window::WindowId::loadPreset));
    windows_.opened.clear();
    EXPECT_TRUE(player().input().keyDown({.code = 'S', .modifiers = {.control = true}}));
    EXPECT_THAT(windows_.opened, ElementsAre(window::WindowId::loadPreset));
    player::frmLoadPreset& dialog = player().dialogs().loadPreset;
    dialog.Form_Load();
    EXPECT_THAT(dialog.List1(), SizeIs(20));
    EXPECT_EQ(dialog.List1()[13], "Bass boost");

    host_.dialogs.filesToSave = {host_.folder / "my.teq"};
    player().tone().equalizer.eq_sld(5, 1);
    player().commands().run(CommandId::savePresetFile);
    player().tone().equalizer.resetbt_Click();
    host_.dialogs.filesToOpen = {{host_.folder / "my.teq"}};
    player().commands().run(CommandId::loadPresetFile);
    EXPECT_EQ(sliders()[5], 1);
}

TEST_F(EqualizerPanel, everyShippedPresetCanBeLoaded) {
    start();
    player::frmLoadPreset& dialog = player().dialogs().loadPreset;
    dialog.Form_Load();
    for (std::int32_t row = 0; row < 20; ++row) {
        EXPECT_TRUE(dialog.Command1_Click(player::frmLoadPreset::Button::load, row));
    }
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

} // namespace
} // namespace tovik::test
