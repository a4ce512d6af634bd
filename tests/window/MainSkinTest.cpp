// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/MainSkin.h"

#include "base/RuntimeError.h"
#include "skin/Bitmap.h"
#include "skin/PicturePrint.h"
#include "support/host/TestHost.h"
#include "support/skin/Bitmaps.h"
#include "support/skin/TestSkin.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>

namespace tovik::window {
namespace {

namespace fs = std::filesystem;
using N = MainElement;

class MainSkinTest : public testing::Test {
protected:
    void SetUp() override { test::writeTestSkin(host_.folder.path()); }

    [[nodiscard]] std::string fileOf(std::string_view name) const {
        return host_.folder / ("skins/CurrentSkin/" + std::string(name) + ".bmp");
    }

    [[nodiscard]] ui::Picture picture(N name, std::size_t index = 0) const {
        return elements_.get(name, index).picture;
    }

    /// The file whose picture the element shows; empty for none.
    [[nodiscard]] std::string shown(N name, std::size_t index = 0) const {
        const ui::PixelImage* image = pictures_.find(picture(name, index));
        return image == nullptr ? "" : test::fileOfColour(image->pixels.at(0));
    }

    int numberRaisedByLoading() {
        try {
            skin_.LoadMainSkin();
            return 0;
        } catch (const base::RuntimeError& error) {
            return error.number();
        }
    }

    test::TestHost host_;
    MainElements elements_{mainLayout()};
    ui::PictureStore pictures_;
    int tabsRefreshed_ = 0;
    MainSkin skin_{elements_, pictures_, host_.paths, [this] { ++tabsRefreshed_; }};
};

TEST_F(MainSkinTest, aLargerPictureIsShownOnlyWhileItsFileIsTheOneThatItWasDrawnWith) {
    // As if all larger pictures were drawn to the files as they are now.
    std::map<std::uint64_t, std::string> drawn;
    for (const Binding& binding : mainBindings()) {
        if (!binding.file.empty()) {
            drawn[skin::picturePrint(binding.file, skin::bitmapFile(fileOf(binding.file)))] =
                binding.file;
        }
    }
    ASSERT_EQ(drawn.size(), 107U);
    pictures_.takeFineFrom([&](std::uint64_t print, int factor) {
        const auto found = drawn.find(print);
        if (found == drawn.end()) {
            return ui::PixelImage{};
        }
        const ui::PixelImage plain = skin::loadBitmap(fileOf(found->second));
        const auto size = static_cast<std::size_t>(factor);
        return ui::PixelImage{
            plain.width * factor, plain.height * factor,
            std::vector<std::uint32_t>(plain.pixels.size() * size * size, 0xFFABCDEF), factor};
    });
    {
        // One byte of the header, which changes no pixel.
        std::fstream file(fileOf("screen"), std::ios::in | std::ios::out | std::ios::binary);
        file.seekp(38);
        file.put('\x01');
    }
    // Another picture of the skin in its place is another picture.
    fs::copy_file(fileOf("btn_play_over"), fileOf("btn_play_up"),
                  fs::copy_options::overwrite_existing);
    skin_.LoadMainSkin();
    const auto factorOf = [&](N name, std::size_t index = 0) {
        return pictures_.find(picture(name, index), 2)->density;
    };
    EXPECT_EQ(factorOf(N::mainIMG), 2);
    EXPECT_EQ(factorOf(N::infoWin), 2);
    EXPECT_EQ(factorOf(N::ScreenIMG), 1);
    std::size_t fine = 0;
    std::size_t all = 0;
    for (const Binding& binding : mainBindings()) {
        if (!binding.file.empty()) {
            ++all;
            fine += factorOf(binding.to.name, binding.to.index) == 2 ? 1U : 0U;
        }
    }
    EXPECT_EQ(all, 107U);
    EXPECT_EQ(fine, 105U);
}

TEST_F(MainSkinTest, everyFileHasItsPlaceInTheFixedOrder) {
    std::vector<std::string> files;
    for (const Binding& binding : mainBindings()) {
        if (!binding.file.empty()) {
            files.emplace_back(binding.file);
        }
    }
    EXPECT_EQ(files.size(), 107U);
    EXPECT_EQ(std::set<std::string>(files.begin(), files.end()).size(), 107U);
    EXPECT_THAT(files,
                testing::ElementsAre(
                    "qpl_exp", "qpl_col", "main", "screen", "infowin", "plwin", "poswin", "volwin",
                    "balwin", "scroller", "btn_rip", "btn_play", "btn_addfile", "btn_add",
                    "btn_remove", "btn_adddir", "btn_addloc", "btn_delete", "btn_clear", "btn_load",
                    "btn_save", "btn_preset", "btn_reset", "btn_cancel", "btn_eq_off", "btn_eq_on",
                    "btn_save_on", "btn_save_off", "text", "text2", "btn_search", "0", "1", "2",
                    "3", "4", "5", "6", "7", "8", "9", "sabar", "eq_bar", "mainbt", "eqbt", "plbt",
                    "ripbt", "irtbt", "prebt", "mainbt_down", "eqbt_down", "plbt_down",
                    "ripbt_down", "irtbt_down", "prebt_down", "mainbt_over", "eqbt_over",
                    "plbt_over", "ripbt_over", "irtbt_over", "prebt_over", "icon", "dash", "dbldot",
                    "btn_close_up", "btn_min_up", "btn_minmode_up", "btn_prev_up", "btn_play_up",
                    "btn_pause_up", "btn_stop_up", "btn_next_up", "btn_file_up", "btn_prev_down",
                    "btn_play_down", "btn_pause_down", "btn_stop_down", "btn_next_down",
                    "btn_file_down", "btn_prev_over", "btn_play_over", "btn_pause_over",
                    "btn_stop_over", "btn_next_over", "btn_file_over", "btn_shuffle_off",
                    "btn_loop_off", "btn_cfd_off", "btn_sld_off", "btn_shuffle_on", "btn_loop_on",
                    "btn_cfd_on", "btn_sld_on", "btn_close_down", "btn_min_down",
                    "btn_minmode_down", "btn_close_over", "btn_min_over", "btn_minmode_over", "cfd",
                    "cfd2", "loop", "loop2", "shuffle", "shuffle2", "sld", "sld2"));
}

struct Place {
    N name;
    std::size_t index;
    const char* file;
};

TEST_F(MainSkinTest, everyElementShowsItsFile) {
    skin_.LoadMainSkin();
    const std::vector<Place> places = {
        {N::mainIMG, 0, "main"},
        {N::ScreenIMG, 0, "screen"},
        {N::infoWin, 0, "infowin"},
        {N::fxWin, 0, "plwin"},
        {N::poswin, 0, "poswin"},
        {N::volwin, 0, "volwin"},
        {N::balwin, 0, "balwin"},
        {N::qpl_exp, 0, "qpl_exp"},
        {N::qpl_col, 0, "qpl_col"},
        {N::iconIMG, 0, "icon"},
        {N::Picture3, 0, "scroller"},
        {N::Picture2, 0, "sabar"},
        {N::Picture7, 0, "eq_bar"},
        {N::textImg, 0, "text"},
        {N::songname2, 0, "text"},
        {N::textImg2, 0, "text2"},
        {N::timed, 0, "dash"},
        {N::timed, 1, "0"},
        {N::timed, 2, "0"},
        {N::timed, 3, "dbldot"},
        {N::timed, 4, "0"},
        {N::timed, 5, "0"},
        {N::mainbt, 0, "mainbt"},
        {N::Image2, 0, "mainbt"},
        {N::Image2, 6, "mainbt_down"},
        {N::Image2, 17, "mainbt_over"},
        {N::eqbt, 0, "eqbt"},
        {N::Image2, 1, "eqbt"},
        {N::Image2, 7, "eqbt_down"},
        {N::Image2, 16, "eqbt_over"},
        {N::plbt, 0, "plbt"},
        {N::Image2, 2, "plbt"},
        {N::Image2, 8, "plbt_down"},
        {N::Image2, 15, "plbt_over"},
        {N::ripbt, 0, "ripbt"},
        {N::Image2, 3, "ripbt"},
        {N::Image2, 9, "ripbt_down"},
        {N::Image2, 14, "ripbt_over"},
        {N::irtbt, 0, "irtbt"},
        {N::Image2, 4, "irtbt"},
        {N::Image2, 10, "irtbt_down"},
        {N::Image2, 13, "irtbt_over"},
        {N::prebt, 0, "prebt"},
        {N::Image2, 5, "prebt"},
        {N::Image2, 11, "prebt_down"},
        {N::Image2, 12, "prebt_over"},
        {N::backupIMG, 0, "btn_prev_up"},
        {N::backdownIMG, 0, "btn_prev_down"},
        {N::tmp, 6, "btn_prev_over"},
        {N::playup, 0, "btn_play_up"},
        {N::playdown, 0, "btn_play_down"},
        {N::tmp, 7, "btn_play_over"},
        {N::pauseup, 0, "btn_pause_up"},
        {N::pausedown, 0, "btn_pause_down"},
        {N::tmp, 8, "btn_pause_over"},
        {N::stopup, 0, "btn_stop_up"},
        {N::stopdown, 0, "btn_stop_down"},
        {N::tmp, 9, "btn_stop_over"},
        {N::nextup, 0, "btn_next_up"},
        {N::nextdown, 0, "btn_next_down"},
        {N::tmp, 10, "btn_next_over"},
        {N::fileup, 0, "btn_file_up"},
        {N::filedown, 0, "btn_file_down"},
        {N::tmp, 11, "btn_file_over"},
        {N::closeup, 0, "btn_close_up"},
        {N::closedown, 0, "btn_close_down"},
        {N::tmp, 12, "btn_close_over"},
        {N::minon, 0, "btn_min_up"},
        {N::minoff, 0, "btn_min_down"},
        {N::tmp, 13, "btn_min_over"},
        {N::minmodeUP, 0, "btn_minmode_up"},
        {N::minmodeDown, 0, "btn_minmode_down"},
        {N::Image5, 0, "btn_minmode_over"},
        {N::Image4, 0, "btn_minmode_up"},
        {N::ShuffleBT, 0, "btn_shuffle_off"},
        {N::Image6, 4, "btn_shuffle_on"},
        {N::LoopBT, 0, "btn_loop_off"},
        {N::Image6, 5, "btn_loop_on"},
        {N::CfdBT, 0, "btn_cfd_off"},
        {N::Image6, 6, "btn_cfd_on"},
        {N::sldBT, 0, "btn_sld_off"},
        {N::Image6, 7, "btn_sld_on"},
        {N::Shuffle, 0, "shuffle"},
        {N::ShuffleDown, 0, "shuffle2"},
        {N::loopImg, 0, "loop"},
        {N::LoopImg2, 0, "loop2"},
        {N::CFD, 0, "cfd"},
        {N::CFD2, 0, "cfd2"},
        {N::Sld, 0, "sld"},
        {N::sld2, 0, "sld2"},
        {N::addfileIMG, 0, "btn_addfile"},
        {N::adddirIMG, 0, "btn_adddir"},
        {N::addlocIMG, 0, "btn_addloc"},
        {N::delIMG, 0, "btn_delete"},
        {N::clrIMG, 0, "btn_clear"},
        {N::loadImg, 0, "btn_load"},
        {N::SaveImg, 0, "btn_save"},
        {N::srchIMG, 0, "btn_search"},
        {N::presetbt, 0, "btn_preset"},
        {N::resetbt, 0, "btn_reset"},
        {N::EQ_off, 0, "btn_eq_off"},
        {N::EQ_on, 0, "btn_eq_on"},
        {N::ripperbt, 0, "btn_rip"},
        {N::cancelrip, 0, "btn_cancel"},
        {N::Image1, 0, "btn_play"},
        {N::Image1, 1, "btn_add"},
        {N::Image1, 2, "btn_remove"},
        {N::Image1, 3, "btn_save_on"},
        {N::Image1, 4, "btn_save_off"},
    };
    for (const Place& place : places) {
        EXPECT_EQ(shown(place.name, place.index), place.file);
    }
    for (std::size_t digit = 0; digit < 10; ++digit) {
        EXPECT_EQ(shown(N::Digit, digit), std::to_string(digit));
    }
    // Nothing else has a picture: 10 digits more than the list tells.
    std::size_t withPicture = 0;
    for (std::size_t slot = 0; slot < elements_.size(); ++slot) {
        withPicture += elements_.at(slot).picture ? 1U : 0U;
    }
    EXPECT_EQ(withPicture, places.size() + 10);
}

TEST_F(MainSkinTest, whatFollowsAMissingFileIsNotLoaded) {
    fs::remove(fileOf("9"));
    EXPECT_EQ(numberRaisedByLoading(), 53);
    EXPECT_EQ(shown(N::Digit, 8), "8");
    EXPECT_FALSE(picture(N::Digit, 9));
    EXPECT_FALSE(picture(N::Picture2));
    EXPECT_FALSE(picture(N::mainbt));
    EXPECT_FALSE(picture(N::timed, 1));
    EXPECT_FALSE(picture(N::sld2));
    EXPECT_EQ(shown(N::mainIMG), "main");
}

TEST_F(MainSkinTest, aFileThatIsNoPictureEndsTheLoading) {
    host_.folder.write("skins/CurrentSkin/text2.bmp", "no picture");
    EXPECT_EQ(numberRaisedByLoading(), 481);
    EXPECT_EQ(shown(N::songname2), "text");
    EXPECT_FALSE(picture(N::textImg2));
    EXPECT_FALSE(picture(N::srchIMG));
}

TEST_F(MainSkinTest, anEmptyFolderGivesNothing) {
    fs::remove_all(host_.folder / "skins");
    EXPECT_EQ(numberRaisedByLoading(), 53);
    EXPECT_FALSE(picture(N::qpl_exp));
}

TEST_F(MainSkinTest, namesAreFoundInAnyCase) {
    fs::rename(fileOf("main"), host_.folder / "skins/CurrentSkin/MAIN.BMP");
    fs::rename(host_.folder / "skins/CurrentSkin", host_.folder / "skins/currentskin");
    skin_.LoadMainSkin();
    EXPECT_EQ(shown(N::mainIMG), "main");
}

TEST_F(MainSkinTest, theWindowAndPlainButtonsAreAsLargeAsTheirPictures) {
    for (const char* const name : {"main", "btn_rip", "btn_close_up", "btn_close_down", "icon"}) {
        host_.folder.write("skins/CurrentSkin/" + std::string(name) + ".bmp",
                           skin::plainBitmap(321, 123, 0));
    }
    skin_.LoadMainSkin();
    for (const N name : {N::mainIMG, N::ripperbt, N::closeup, N::closedown, N::iconIMG}) {
        EXPECT_EQ(elements_.get(name).width, 321);
        EXPECT_EQ(elements_.get(name).height, 123);
    }
}

TEST_F(MainSkinTest, aGroundThatNoScreenHasRoomForIsAnError) {
    MainSkin small(
        elements_, pictures_, host_.paths, [] {},
        [](int width, int height) { return width <= 640 && height <= 480; });
    host_.folder.write("skins/CurrentSkin/main.bmp", skin::plainBitmap(640, 480, 0));
    small.LoadMainSkin();
    EXPECT_EQ(elements_.get(N::mainIMG).width, 640);
    elements_.touch(N::mainIMG).width = 470;
    elements_.touch(N::mainIMG).height = 312;
    for (const auto& [width, height] : {std::pair(641, 100), std::pair(100, 481)}) {
        host_.folder.write("skins/CurrentSkin/main.bmp", skin::plainBitmap(width, height, 0));
        try {
            small.LoadMainSkin();
            ADD_FAILURE() << width;
        } catch (const base::RuntimeError& error) {
            EXPECT_EQ(error.number(), 481);
        }
        EXPECT_EQ(elements_.get(N::mainIMG).width, 470);
    }
}

TEST_F(MainSkinTest, aGroundAsLargeAsTheLayoutsFitsTheSmallestScreen) {
    MainSkin small(
        elements_, pictures_, host_.paths, [] {}, [](int, int) { return false; });
    host_.folder.write("skins/CurrentSkin/main.bmp", skin::plainBitmap(470, 312, 0));
    small.LoadMainSkin();
    EXPECT_TRUE(picture(N::mainIMG));
}

TEST_F(MainSkinTest, otherElementsKeepTheSizeOfTheLayout) {
    const MainElements layout(mainLayout());
    for (const Binding& binding : mainBindings()) {
        if (!binding.file.empty()) {
            host_.folder.write("skins/CurrentSkin/" + std::string(binding.file) + ".bmp",
                               skin::plainBitmap(321, 123, 0));
        }
    }
    skin_.LoadMainSkin();
    for (const N name :
         {N::ScreenIMG, N::infoWin, N::fxWin, N::poswin, N::volwin, N::balwin, N::timed, N::mainbt,
          N::playup, N::playdown, N::ShuffleBT, N::Shuffle, N::sld2}) {
        EXPECT_EQ(elements_.get(name).box(), layout.get(name).box());
    }
}

TEST_F(MainSkinTest, theFacesAreKept) {
    skin_.LoadMainSkin();
    skin_.SaveUpPictures();
    EXPECT_EQ(shown(N::tmp, 0), "btn_prev_up");
    EXPECT_EQ(shown(N::tmp, 1), "btn_play_up");
    EXPECT_EQ(shown(N::tmp, 2), "btn_pause_up");
    EXPECT_EQ(shown(N::tmp, 3), "btn_stop_up");
    EXPECT_EQ(shown(N::tmp, 4), "btn_next_up");
    EXPECT_EQ(shown(N::tmp, 5), "btn_file_up");
    EXPECT_EQ(shown(N::tmp, 14), "btn_close_up");
    EXPECT_EQ(shown(N::tmp, 15), "btn_min_up");
    EXPECT_EQ(shown(N::tmp, 16), "btn_minmode_down");
    EXPECT_EQ(shown(N::Image8, 0), "btn_shuffle_off");
    EXPECT_EQ(shown(N::Image8, 1), "btn_loop_off");
    EXPECT_EQ(shown(N::Image8, 2), "btn_cfd_off");
    EXPECT_EQ(shown(N::Image8, 3), "btn_sld_off");
    EXPECT_EQ(tabsRefreshed_, 0);
}

class ButtonFacesTest : public MainSkinTest {
protected:
    void SetUp() override {
        MainSkinTest::SetUp();
        skin_.LoadMainSkin();
        skin_.SaveUpPictures();
    }

    void enter(N name) { skin_.pointerEntered(ui::addressOf(name)); }
};

TEST_F(ButtonFacesTest, eachButtonHasItsOverFaceUntilTheMouseIsOnTheBackground) {
    for (const auto& [name, file] : {std::pair{N::backupIMG, "btn_prev"},
                                     {N::playup, "btn_play"},
                                     {N::pauseup, "btn_pause"},
                                     {N::stopup, "btn_stop"},
                                     {N::nextup, "btn_next"},
                                     {N::fileup, "btn_file"},
                                     {N::closeup, "btn_close"},
                                     {N::minon, "btn_min"},
                                     {N::minmodeUP, "btn_minmode"}}) {
        enter(name);
        EXPECT_EQ(shown(name), std::string(file) + "_over");
        EXPECT_EQ(tabsRefreshed_, 1);
        skin_.movedOverBackground();
        EXPECT_EQ(shown(name), std::string(file) + "_up");
        EXPECT_EQ(tabsRefreshed_, 2);
        tabsRefreshed_ = 0;
    }
}

TEST_F(ButtonFacesTest, onlyTheLastOfTwoNeighboursHasItsOverFace) {
    enter(N::playup);
    enter(N::pauseup);
    EXPECT_EQ(shown(N::playup), "btn_play_up");
    EXPECT_EQ(shown(N::pauseup), "btn_pause_over");
}

TEST_F(ButtonFacesTest, otherElementsAreNoneOfThem) {
    enter(N::playup);
    tabsRefreshed_ = 0;
    for (const N name : {N::List1, N::ShuffleBT, N::mainbt, N::ScreenIMG}) {
        enter(name);
    }
    EXPECT_EQ(tabsRefreshed_, 0);
    EXPECT_EQ(shown(N::playup), "btn_play_over");
}

TEST_F(ButtonFacesTest, restoringLeavesTheFacesOfModes) {
    elements_.touch(N::ShuffleBT).picture = picture(N::Image6, 4);
    skin_.RestoreUpPictures();
    EXPECT_EQ(shown(N::ShuffleBT), "btn_shuffle_on");
}

TEST_F(ButtonFacesTest, aMoveThatChangesNothingWakesNobody) {
    elements_.forgetChanges();
    int woken = 0;
    elements_.onTouched([&woken] { ++woken; });
    skin_.movedOverBackground();
    EXPECT_EQ(woken, 0);
    enter(N::playup);
    EXPECT_EQ(woken, 1);
}

} // namespace
} // namespace tovik::window
