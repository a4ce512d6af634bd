// SPDX-License-Identifier: GPL-3.0-or-later
// The skin in the start: unpacked, bound, kept; and what a start without one leaves.
#include "app/AppRig.h"
#include "skin/SkinPackage.h"
#include "support/skin/TestSkin.h"

namespace tovik::test {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using window::MainElement;

class Skin : public AppRig {
protected:
    /// Takes the skin out of the data folder.
    void dropSkin() const { fs::remove(host_.folder / kSkin); }

    /// The files of the tests' skin, for a package.
    static std::vector<skin::SkinFile> files() {
        const TemporaryFolder folder;
        writeTestSkin(folder.path());
        std::vector<skin::SkinFile> files;
        for (const window::Binding& binding : window::mainBindings()) {
            if (!binding.file.empty()) {
                const std::string name = std::string(binding.file) + ".bmp";
                files.push_back({name, folder.read("skins/CurrentSkin/" + name)});
            }
        }
        return files;
    }

    [[nodiscard]] std::string shown(MainElement name, std::size_t index = 0) {
        const ui::PixelImage* image =
            player().view().pictures.find(player().elements().get(name, index).picture);
        return image == nullptr ? "" : fileOfColour(image->pixels.at(0));
    }
};

TEST_F(Skin, theFirstStartUnpacksAndBindsIt) {
    dropSkin();
    host_.folder.write("skins/base.tsf", skin::skinPackage(files(), ""));
    start();
    EXPECT_THAT(logged(), IsEmpty());
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    EXPECT_EQ(shown(MainElement::mainIMG), "main");
    EXPECT_EQ(shown(MainElement::timed, 1), "0");
    EXPECT_EQ(shown(MainElement::sld2), "sld2");
    EXPECT_EQ(shown(MainElement::tmp, 0), "btn_prev_up");
    EXPECT_THAT(sound_.calls, Contains("window shown"));
}

TEST_F(Skin, withoutAPackageTheStartIsAbandoned) {
    dropSkin();
    start();
    ASSERT_EQ(host_.dialogs.boxes.size(), 2U);
    EXPECT_EQ(host_.dialogs.boxes[0].text, "error!");
    EXPECT_EQ(host_.dialogs.boxes[0].title, "Tovik");
    const std::string missing =
        "File not found: " + (host_.folder / "skins/CurrentSkin/qpl_exp.bmp");
    EXPECT_EQ(host_.dialogs.boxes[1].text, missing);
    EXPECT_EQ(host_.dialogs.boxes[1].title, "Tovik");
    EXPECT_THAT(logged(), ElementsAre(missing + ",53,Player,Load"));
    // It comes before the settings and everything else; who starts the player shows the window.
    EXPECT_THAT(sound_.calls, IsEmpty());
    EXPECT_FALSE(player().state().LoadFinished);
    EXPECT_FALSE(host_.endStatus);
}

TEST_F(Skin, aPartialSkinShowsWhatWasLoaded) {
    dropSkin();
    std::vector<skin::SkinFile> some = files();
    std::erase_if(some, [](const skin::SkinFile& file) { return file.name == "9.bmp"; });
    host_.folder.write("skins/base.tsf", skin::skinPackage(some, ""));
    start();
    const std::string missing = "File not found: " + (host_.folder / "skins/CurrentSkin/9.bmp");
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].text, missing);
    EXPECT_THAT(logged(), ElementsAre(missing + ",53,Player,Load"));
    EXPECT_EQ(shown(MainElement::Digit, 8), "8");
    EXPECT_EQ(shown(MainElement::Picture2), "");
    EXPECT_EQ(shown(MainElement::sld2), "");
}

TEST_F(Skin, aPictureThatIsNoneIsLogged) {
    dropSkin();
    writeTestSkin(host_.folder.path());
    host_.folder.write("skins/CurrentSkin/main.bmp", "no picture");
    start();
    EXPECT_THAT(logged(),
                ElementsAre("Invalid picture: " + (host_.folder / "skins/CurrentSkin/main.bmp") +
                            ",481,Player,Load"));
    EXPECT_THAT(sound_.calls, Not(Contains("window shown")));
}

/// With comfort, beside a program that brought a skin.
class KindSkin : public Skin {
protected:
    KindSkin() {
        options_.comfort = true;
        fs::create_directories(shipped_.path() + "/db");
        fs::copy_file(std::string(TOVIK_DATA_DIR) + "/db/settings.xml",
                      shipped_.path() + "/db/settings.xml");
        shipped_.write("skins/base.tsf", skin::skinPackage(files(), ""));
        options_.shippedFolder = shipped_.path();
        dropSkin();
    }

    TemporaryFolder shipped_;
};

TEST_F(KindSkin, aMissingPictureIsTheShippedOne) {
    std::vector<skin::SkinFile> some = files();
    std::erase_if(some, [](const skin::SkinFile& file) { return file.name == "9.bmp"; });
    host_.folder.write("skins/base.tsf", skin::skinPackage(some, ""));
    start();
    EXPECT_EQ(shown(MainElement::Digit, 9), "9");
    EXPECT_EQ(shown(MainElement::sld2), "sld2");
    EXPECT_TRUE(player().state().LoadFinished);
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    EXPECT_THAT(logged(),
                ElementsAre("File not found: " + (host_.folder / "skins/CurrentSkin/9.bmp") +
                            ",53,Player,Load"));
    EXPECT_FALSE(fs::exists(host_.folder / "skins/CurrentSkin/9.bmp")) << "the skin is the user's";
}

TEST_F(KindSkin, aPictureThatIsNoneIsTheShippedOne) {
    writeTestSkin(host_.folder.path());
    host_.folder.write("skins/CurrentSkin/main.bmp", "no picture");
    host_.folder.write("skins/CurrentSkin/0.bmp", "");
    start();
    EXPECT_EQ(shown(MainElement::mainIMG), "main");
    EXPECT_EQ(shown(MainElement::timed, 1), "0");
    EXPECT_THAT(logged(), testing::SizeIs(2));
    EXPECT_EQ(host_.folder.read("skins/CurrentSkin/main.bmp"), "no picture");
}

TEST_F(KindSkin, aStrayFileKeepsNothingFromTheFolder) {
    host_.folder.write("skins/base.tsf", skin::skinPackage(files(), ""));
    host_.folder.write("skins/CurrentSkin/stray.txt", "");
    start();
    EXPECT_THAT(logged(), IsEmpty());
    EXPECT_EQ(shown(MainElement::sld2), "sld2");
    EXPECT_TRUE(fs::exists(host_.folder / "skins/CurrentSkin/sld2.bmp"));
}

TEST_F(KindSkin, aFileThatIsNoPackageIsToldAndTheShippedSkinIsShown) {
    const std::string package = host_.folder.write("skins/base.tsf", "Zovik or anything else, with "
                                                                     "some bytes behind it");
    start();
    EXPECT_EQ(shown(MainElement::mainIMG), "main");
    ASSERT_THAT(host_.dialogs.boxes, testing::SizeIs(1));
    EXPECT_EQ(host_.dialogs.boxes[0].text, "No skin package, or a damaged one: " + package);
    EXPECT_TRUE(player().state().LoadFinished);
}

TEST_F(KindSkin, aFolderThatCannotBeMadeLeavesTheShippedPictures) {
    host_.folder.write(kSkin, "no folder");
    start();
    EXPECT_EQ(shown(MainElement::mainIMG), "main");
    EXPECT_EQ(shown(MainElement::sld2), "sld2");
    EXPECT_TRUE(player().state().LoadFinished);
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    EXPECT_THAT(logged(), Contains(testing::HasSubstr((host_.folder / kSkin) + ",")));
    EXPECT_EQ(host_.folder.read(kSkin), "no folder");
}

TEST_F(KindSkin, withNoSkinAtAllTheStartGoesOn) {
    options_.shippedFolder.clear();
    start();
    EXPECT_TRUE(player().state().LoadFinished);
    EXPECT_EQ(shown(MainElement::mainIMG), "");
    player().presence().enterMiniMode();
    player().kill_me();
    EXPECT_EQ(host_.endStatus, 0);
}

TEST_F(KindSkin, theSmallWindowHasTheShippedPicturesToo) {
    writeTestSkin(host_.folder.path());
    host_.folder.write("skins/CurrentSkin/minmode_play.bmp", "none");
    auto all = files();
    all.push_back({"minmode_play.bmp", skin::plainBitmap(7, 5, 0xABCDEF)});
    shipped_.write("skins/base.tsf", skin::skinPackage(all, ""));
    start();
    player().presence().enterMiniMode();
    const auto& play = player().presence().mini.elements.get(window::MiniElement::Image4, 1);
    const ui::PixelImage* const image = player().view().pictures.find(play.picture);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->pixels.at(0), 0xFFABCDEF);
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(Skin, theMouseChangesFaces) {
    start();
    EXPECT_EQ(shown(MainElement::mainbt), "mainbt_down");
    ui::WindowInput& input = player().input();
    input.pointerEntered(ui::addressOf(MainElement::playup));
    EXPECT_EQ(shown(MainElement::playup), "btn_play_over");
    input.mouseMove({.element = ui::addressOf(MainElement::mainIMG)});
    EXPECT_EQ(shown(MainElement::playup), "btn_play_up");
    EXPECT_EQ(shown(MainElement::mainbt), "mainbt_down");
}

TEST_F(Skin, thePictureOfTheWindowGivesItsOutline) {
    dropSkin();
    std::vector<skin::SkinFile> some = files();
    // Two pixels of one bit; the second colour is the key, and the first bit asks for it.
    const skin::BitmapParts bitmap{.width = 2,
                                   .height = 1,
                                   .bits = 1,
                                   .extra = {0x010203, 0xEBDE0E},
                                   .pixels = std::string("\x80\0\0\0", 4)};
    for (skin::SkinFile& file : some) {
        if (file.name == "main.bmp") {
            file.data = bitmap.bytes();
        }
    }
    host_.folder.write("skins/base.tsf", skin::skinPackage(some, ""));
    start();
    EXPECT_THAT(logged(), IsEmpty());
    ASSERT_TRUE(window_.outline.region);
    EXPECT_THAT(window_.outline.region->rectangles(), ElementsAre(ui::RegionRectangle{1, 0, 2, 1}));
}

TEST_F(Skin, aWindowWithoutHolesIsWhole) {
    start();
    ASSERT_TRUE(window_.outline.region);
    EXPECT_EQ(window_.outline.region->rectangles().size(), 1U);
}

TEST_F(Skin, theTitleMovesOnlyWhileSomebodyCanSeeIt) {
    track("song.mp3");
    host_.folder.write("db/autosave.m3u",
                       "#EXTM3U\r\n#EXTINF:65,Song\r\n" + host_.folder.path() + "/song.mp3\r\n");
    start();
    advance(200);
    player().List1().ListIndex(0);
    player().music().playback.rows.List1_DblClick();
    const auto title = [this] { return player().elements().get(MainElement::songname).picture; };
    ui::Picture before = title();
    EXPECT_TRUE(before);
    advance(200);
    EXPECT_NE(title(), before);
    window_.seen = false;
    before = title();
    advance(1000);
    EXPECT_EQ(title(), before);
    window_.seen = true;
    advance(200);
    EXPECT_NE(title(), before);
}

TEST_F(Skin, theSplashComesOnlyWhereItIsAskedFor) {
    set("AP", "1");
    start();
    const auto place = [this](const std::string& call) {
        return std::ranges::find(sound_.calls, call) - sound_.calls.begin();
    };
    EXPECT_THAT(sound_.calls, Contains("splash shown"));
    EXPECT_LT(place("splash shown"), place("splash ended"));
    EXPECT_LT(place("splash ended"), place("window shown"));
}

TEST_F(Skin, withoutTheSettingThereIsNoSplash) {
    set("AP", "0");
    start();
    EXPECT_THAT(sound_.calls, Not(Contains("splash shown")));
}

} // namespace
} // namespace tovik::test
