// SPDX-License-Identifier: GPL-3.0-or-later
// The skin's folder, completed.
#include "skin/HuffmanEncoder.h"
#include "skin/PackageBytes.h"
#include "skin/UnpackSkin.h"
#include "support/host/TestHost.h"
#include "support/skin/Bitmaps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>

namespace tovik::skin {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

/// Pictures as small as can be, by their names.
class MendSkinTest : public testing::Test {
protected:
    void put(const std::string& package) { host_.folder.write("skins/base.tsf", package); }

    [[nodiscard]] bool scratchIsThere() const {
        return fs::exists(host_.folder / "skins/base.bin");
    }

    /// The files of the skin's folder with their bytes.
    [[nodiscard]] std::map<std::string, std::string> files() const {
        std::map<std::string, std::string> found;
        for (const auto& file : fs::directory_iterator(host_.folder / "skins/CurrentSkin")) {
            const std::string name = file.path().filename();
            found[name] = host_.folder.read("skins/CurrentSkin/" + name);
        }
        return found;
    }

    static std::string picture(std::uint32_t colour) { return plainBitmap(1, 1, colour); }

    void putThree() {
        put(header(3) + entry("a.bmp", storedStream(picture(1))) +
            entry("B.bmp", huffmanStream(picture(2))) + entry("extra.txt", storedStream("more")));
    }

    bool mend() { return mendSkin(host_.paths, {"a.bmp", "b.bmp"}); }

    test::TestHost host_;
};

TEST_F(MendSkinTest, anEmptyFolderGetsTheWholePackage) {
    putThree();
    EXPECT_TRUE(mend());
    EXPECT_THAT(files(), ElementsAre(Pair("B.bmp", picture(2)), Pair("a.bmp", picture(1)),
                                     Pair("extra.txt", "more")));
    EXPECT_FALSE(scratchIsThere());
}

TEST_F(MendSkinTest, onlyWhatIsMissingIsPutThere) {
    putThree();
    host_.folder.write("skins/CurrentSkin/A.BMP", "mine");
    EXPECT_TRUE(mend());
    EXPECT_THAT(files(), ElementsAre(Pair("A.BMP", "mine"), Pair("B.bmp", picture(2))));
    put("not looked at any more");
    EXPECT_TRUE(mend());
}

TEST_F(MendSkinTest, whatAFailedUnpackingLeftIsMadeAnew) {
    put(header(2) + entry("a.bmp", storedStream(picture(1).substr(0, 20))) + "broken off");
    UnpackSkin(host_.paths, host_.dialogs);
    EXPECT_THAT(host_.dialogs.boxes, SizeIs(1));
    EXPECT_TRUE(scratchIsThere());
    putThree();
    EXPECT_TRUE(mend());
    EXPECT_EQ(files()["a.bmp"], picture(1));
    EXPECT_EQ(files()["B.bmp"], picture(2));
    EXPECT_FALSE(scratchIsThere());
    host_.folder.write("skins/CurrentSkin/a.bmp", "mine, and no picture");
    EXPECT_TRUE(mend());
    EXPECT_EQ(files()["a.bmp"], "mine, and no picture");
}

TEST_F(MendSkinTest, aPackageThatIsNoneOrNotWholeIsSaid) {
    EXPECT_FALSE(mend()) << "there is none";
    put(header(0, "Zovik12345"));
    EXPECT_FALSE(mend());
    std::string stream = huffmanStream(picture(2));
    stream[4] = static_cast<char>(stream[4] ^ 1); // its sum
    put(header(2) + entry("b.bmp", stream) + entry("a.bmp", storedStream(picture(1))));
    EXPECT_FALSE(mend());
    EXPECT_THAT(files(), ElementsAre(Pair("a.bmp", picture(1)))) << "one bad entry is one";
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

} // namespace
} // namespace tovik::skin
