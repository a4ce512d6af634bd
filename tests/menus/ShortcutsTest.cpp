// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/RuntimeError.h"
#include "menus/ShortcutFile.h"
#include "MenusRig.h"
#include "support/host/TemporaryFolder.h"

#include <gmock/gmock.h>

namespace tovik::menus {
namespace {

using namespace std::string_literals;

const std::string kHead = "\0[Pelmo-Menus-Shortcuts]\0[V-1-0-0]\0"s;

struct Shortcuts : testing::Test, MenusRig {
    test::TemporaryFolder folder;
    std::string path = folder / "shortcuts.dat";
};

TEST_F(Shortcuts, theFileHoldsEveryItemInItsOrder) {
    folder.write("shortcuts.dat", "an older file that is longer than nothing");
    menus.ItemKeyAccel(at("open"), "Ctrl+O");
    menus.ItemKeyAccel(8, "F8");
    EXPECT_TRUE(menus.SaveShortcuts(path));
    EXPECT_EQ(folder.read("shortcuts.dat"), kHead +
                                                "K\0file\0\0K\0open\0Ctrl+O\0K\0bar\0\0K\0save\0\0"s
                                                "K\0tools\0\0K\0more\0\0K\0deep\0\0I\0008\0F8\0"s);
    EXPECT_FALSE(menus.acceleratorsChanged());
}

TEST_F(Shortcuts, whatWasSavedIsLoaded) {
    menus.ItemKeyAccel(at("open"), "Ctrl+O");
    menus.ItemKeyAccel(8, "F8");
    menus.SaveShortcuts(path);
    MenusRig other;
    EXPECT_TRUE(other.menus.LoadShortcuts(path));
    EXPECT_EQ(other.menus.ItemKeyAccel(other.at("open")), "Ctrl+O");
    EXPECT_EQ(other.menus.ItemKeyAccel(8), "F8");
    EXPECT_FALSE(other.menus.acceleratorsChanged());
    EXPECT_EQ(other.menus.shortcutBytes(), menus.shortcutBytes());
}

TEST_F(Shortcuts, aMissingFileIsNoneAndAFolderRaises) {
    EXPECT_FALSE(menus.LoadShortcuts(path));
    EXPECT_THROW(menus.LoadShortcuts(folder.path()), base::RuntimeError);
    EXPECT_THROW(menus.SaveShortcuts(folder / "none/shortcuts.dat"), base::RuntimeError);
}

TEST_F(Shortcuts, theHeadersAloneChangeNothing) {
    menus.ItemKeyAccel(at("open"), "Ctrl+O");
    const std::string before = menus.shortcutBytes();
    EXPECT_TRUE(menus.applyShortcuts(kHead));
    EXPECT_TRUE(menus.applyShortcuts(kHead.substr(0, kHead.size() - 1)));
    EXPECT_EQ(menus.shortcutBytes(), before);
}

TEST_F(Shortcuts, aForeignFileChangesNothing) {
    const std::string record = "K\0open\0F1\0"s;
    for (const std::string& bytes : {""s, "\0"s, kHead.substr(1) + record, "x"s + kHead + record,
                                     "\0[pelmo-menus-shortcuts]\0[V-1-0-0]\0"s + record,
                                     "\0[Pelmo-Menus-Shortcuts]\0[V-1-0-1]\0"s + record}) {
        EXPECT_FALSE(menus.applyShortcuts(bytes));
        EXPECT_EQ(menus.ItemKeyAccel(at("open")), "");
    }
}

TEST_F(Shortcuts, aKeyThatIsGoneIsPassedOver) {
    EXPECT_TRUE(menus.applyShortcuts(kHead + "K\0gone\0F1\0K\0open\0F1\0"s));
    EXPECT_EQ(menus.ItemKeyAccel(at("open")), "F1");
}

TEST_F(Shortcuts, numbersThatAreNoneArePassedOver) {
    EXPECT_TRUE(menus.applyShortcuts(
        kHead +
        "I\0x\0F1\0I\0000\0F1\0I\00099\0F1\0I\000-1\0F1\0I\099999999999\0F1\0I\0008\0F1\0"s));
    EXPECT_EQ(menus.IndexForKeyAccel("F1"), 8);
}

TEST_F(Shortcuts, anUnknownTagStopsTheReadingAndEarlierRecordsStay) {
    EXPECT_FALSE(menus.applyShortcuts(kHead + "K\0open\0F1\0X\0save\0F2\0K\0save\0F3\0"s));
    EXPECT_EQ(menus.ItemKeyAccel(at("open")), "F1");
    EXPECT_EQ(menus.ItemKeyAccel(at("save")), "");
    EXPECT_FALSE(menus.applyShortcuts(kHead + "k\0save\0F3\0"s));
    EXPECT_FALSE(menus.applyShortcuts(kHead + "\0\0"s)) << "only one empty field is the end";
}

TEST_F(Shortcuts, theSecondOfTwoEqualAcceleratorsIsRefused) {
    EXPECT_TRUE(menus.applyShortcuts(kHead + "K\0open\0F1\0K\0save\0F1\0"s));
    EXPECT_EQ(menus.ItemKeyAccel(at("open")), "F1");
    EXPECT_EQ(menus.ItemKeyAccel(at("save")), "");
}

TEST_F(Shortcuts, emptyAcceleratorsTakeOnesAway) {
    menus.ItemKeyAccel(at("open"), "F1");
    EXPECT_TRUE(menus.applyShortcuts(kHead + "K\0open\0\0K\0save\0\0"s));
    EXPECT_EQ(menus.ItemKeyAccel(at("open")), "");
}

TEST_F(Shortcuts, aRecordThatTheFileEndsInIsPassedOver) {
    for (const std::string& rest : {"K"s, "K\0"s, "K\0open"s, "K\0open\0"s}) {
        EXPECT_TRUE(menus.applyShortcuts(kHead + "K\0save\0F2\0"s + rest));
        EXPECT_EQ(menus.ItemKeyAccel(at("open")), "");
    }
    EXPECT_TRUE(menus.applyShortcuts(kHead + "K\0open\0F1"s)) << "only its last NUL is missing";
    EXPECT_EQ(menus.ItemKeyAccel(at("open")), "F1");
}

} // namespace
} // namespace tovik::menus
