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
using ui::MainElement;

class Skin : public AppRig {
protected:
    /// Takes the skin out of the data folder.
    void dropSkin() const { fs::remove(host_.folder / kSkin); }

    /// The files of the tests' skin, for a package.
    static std::vector<skin::SkinFile> files() {
        const TemporaryFolder folder;
        writeTestSkin(folder.path());
        std::vector<skin::SkinFile> files;
        for (const skin::Binding& binding : skin::mainBindings()) {
            if (!binding.file.empty()) {
                const std::string name = std::string(binding.file) + ".bmp";
                files.push_back({name, folder.read("skins/CurrentSkin/" + name)});
            }
        }
        return files;
    }

    [[nodiscard]] std::string shown(MainElement name, std::size_t index = 0) {
        const ui::PixelImage* image =
            player().pictures().find(player().elements().get(name, index).picture);
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
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes[0].text, "error!");
    EXPECT_THAT(logged(), ElementsAre("File not found,53,Player,Load"));
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
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    EXPECT_THAT(logged(), ElementsAre("File not found,53,Player,Load"));
    EXPECT_EQ(shown(MainElement::Digit, 8), "8");
    EXPECT_EQ(shown(MainElement::Picture2), "");
    EXPECT_EQ(shown(MainElement::sld2), "");
}

TEST_F(Skin, aPictureThatIsNoneIsLogged) {
    dropSkin();
    writeTestSkin(host_.folder.path());
    host_.folder.write("skins/CurrentSkin/main.bmp", "no picture");
    start();
    EXPECT_THAT(logged(), ElementsAre("Invalid picture,481,Player,Load"));
    EXPECT_THAT(sound_.calls, Not(Contains("window shown")));
}

TEST_F(Skin, theMouseChangesFaces) {
    start();
    ui::WindowInput& input = player().input();
    input.pointerEntered(ui::addressOf(MainElement::playup));
    EXPECT_EQ(shown(MainElement::playup), "btn_play_over");
    input.mouseMove({.element = ui::addressOf(MainElement::mainIMG)});
    EXPECT_EQ(shown(MainElement::playup), "btn_play_up");
    EXPECT_EQ(shown(MainElement::mainbt), "mainbt_down");
}

} // namespace
} // namespace tovik::test
