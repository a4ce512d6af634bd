// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Upgrade.h"

#include "base/Digest.h"
#include "skin/SkinPackage.h"
#include "support/host/TemporaryFolder.h"
#include "support/host/Unprivileged.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tovik::test {
namespace {

namespace fs = std::filesystem;

std::string settingsOf(const std::string& version) {
    return "<?xml version=\"1.0\"?>\n<Settings><CVL>80</CVL>" + version + "</Settings>\n";
}

/// A data folder that version 0.1.0 filled, and what comes with 0.2.0.
class UpgradeTest : public testing::Test {
protected:
    UpgradeTest() {
        ship("0.1.0", "<TKXV>0,1</TKXV><TKV2>1</TKV2><TKD>1.1.2026</TKD>", "old");
        fs::copy(folder_ / "0.1.0", folder_ / "data", fs::copy_options::recursive);
        folder_.write("data/skins/CurrentSkin/main.bmp", "old");
        folder_.write("data/skins/CurrentSkin/play.bmp", "old");
        app::upgradeDataFolder(folder_ / "data", folder_ / "0.1.0", "0.1.0");
        ship("0.2.0", "<TKXV>0,2</TKXV><TKV2>2</TKV2><TKD>2.2.2027</TKD>", "new");
        folder_.write("0.2.0/Languages/French.lng", "new");
    }

    void ship(const std::string& version, const std::string& keys, const std::string& bytes) {
        folder_.write(version + "/db/settings.xml", settingsOf(keys));
        folder_.write(version + "/Languages/English.lng", bytes);
        folder_.write(version + "/Languages/Slovenian.lng", bytes);
        folder_.write(version + "/vh.txt", bytes);
        folder_.write(version + "/skins/base.tsf",
                      skin::skinPackage({{"main.bmp", bytes}, {"play.bmp", bytes}}, ""));
    }

    /// What it tells on the error stream.
    std::string upgrade(const std::string& version = "0.2.0") {
        testing::internal::CaptureStderr();
        app::upgradeDataFolder(folder_ / "data", folder_ / "0.2.0", version);
        return testing::internal::GetCapturedStderr();
    }

    [[nodiscard]] std::string data(const std::string& name) const {
        return folder_.read("data/" + name);
    }

    TemporaryFolder folder_;
};

TEST_F(UpgradeTest, whatNobodyChangedIsRenewed) {
    folder_.write("data/Languages/Slovenian.lng", "mine");
    folder_.write("data/skins/CurrentSkin/play.bmp", "mine");
    fs::remove(folder_ / "data/vh.txt");
    EXPECT_EQ(upgrade(), "");
    EXPECT_EQ(data("Languages/English.lng"), "new");
    EXPECT_EQ(data("Languages/Slovenian.lng"), "mine");
    EXPECT_EQ(data("Languages/French.lng"), "new");
    EXPECT_EQ(data("vh.txt"), "new");
    EXPECT_EQ(data("skins/base.tsf"), folder_.read("0.2.0/skins/base.tsf"));
    EXPECT_EQ(data("skins/CurrentSkin/main.bmp"), "new");
    EXPECT_EQ(data("skins/CurrentSkin/play.bmp"), "mine");
    EXPECT_EQ(data("db/settings.xml"),
              settingsOf("<TKXV>0,2</TKXV><TKV2>2</TKV2><TKD>2.2.2027</TKD>"));
    EXPECT_TRUE(data("db/laid.txt").starts_with("Tovik 0.2.0\n"));
}

TEST_F(UpgradeTest, aSkinOfTheUsersOwnGetsOnlyWhatItLacks) {
    folder_.write("data/skins/base.tsf", skin::skinPackage({{"main.bmp", "old"}}, "my own"));
    fs::remove(folder_ / "data/skins/CurrentSkin/play.bmp");
    EXPECT_EQ(upgrade(), "");
    EXPECT_EQ(data("skins/CurrentSkin/main.bmp"), "old");
    EXPECT_EQ(data("skins/CurrentSkin/play.bmp"), "new");
    EXPECT_NE(data("skins/base.tsf"), folder_.read("0.2.0/skins/base.tsf"));
}

TEST_F(UpgradeTest, theSameAndAnOlderVersionLookAtNothing) {
    fs::remove(folder_ / "data/vh.txt");
    for (const char* version : {"0.1.0", "0.1", "0.0.9"}) {
        EXPECT_EQ(upgrade(version), "");
        EXPECT_EQ(data("Languages/English.lng"), "old");
        EXPECT_FALSE(fs::exists(folder_ / "data/vh.txt"));
        EXPECT_TRUE(data("db/laid.txt").starts_with("Tovik 0.1.0\n"));
    }
}

TEST_F(UpgradeTest, aSecondStartOfTheNewVersionChangesNothing) {
    EXPECT_EQ(upgrade(), "");
    folder_.write("data/Languages/English.lng", "old");
    EXPECT_EQ(upgrade(), "");
    EXPECT_EQ(data("Languages/English.lng"), "old");
}

TEST_F(UpgradeTest, whatFailsIsToldAndTriedAgain) {
    fs::permissions(folder_.path(), fs::perms(0755));
    for (const char* place : {"data", "data/db", "data/skins", "data/skins/CurrentSkin"}) {
        fs::permissions(folder_ / place, fs::perms(0777));
    }
    for (const char* file : {"db/settings.xml", "db/laid.txt", "vh.txt", "skins/base.tsf",
                             "skins/CurrentSkin/main.bmp", "skins/CurrentSkin/play.bmp"}) {
        fs::permissions(folder_ / ("data/" + std::string(file)), fs::perms(0666));
    }
    fs::permissions(folder_ / "data/Languages", fs::perms(0555));
    {
        const Unprivileged user;
        const std::string told = upgrade();
        EXPECT_NE(told.find(folder_ / "data: Permission denied"), std::string::npos) << told;
    }
    EXPECT_EQ(data("vh.txt"), "new");
    EXPECT_EQ(data("Languages/English.lng"), "old");
    EXPECT_TRUE(data("db/laid.txt").starts_with("Tovik 0.1.0\n"));
    fs::permissions(folder_ / "data/Languages", fs::perms(0755));
    EXPECT_EQ(upgrade(), "");
    EXPECT_EQ(data("Languages/English.lng"), "new");
    EXPECT_TRUE(data("db/laid.txt").starts_with("Tovik 0.2.0\n"));
}

TEST_F(UpgradeTest, picturesThatFailAreRenewedAtTheNextStart) {
    fs::permissions(folder_.path(), fs::perms(0755));
    for (const char* place : {"data", "data/db", "data/skins", "data/Languages"}) {
        fs::permissions(folder_ / place, fs::perms(0777));
    }
    for (const char* file : {"db/settings.xml", "db/laid.txt", "vh.txt", "skins/base.tsf",
                             "Languages/English.lng", "Languages/Slovenian.lng"}) {
        fs::permissions(folder_ / ("data/" + std::string(file)), fs::perms(0666));
    }
    fs::permissions(folder_ / "data/skins/CurrentSkin", fs::perms(0555));
    {
        const Unprivileged user;
        EXPECT_NE(upgrade(), "");
    }
    EXPECT_EQ(data("skins/CurrentSkin/main.bmp"), "old");
    EXPECT_EQ(data("Languages/English.lng"), "new") << "the others do not wait for it";
    EXPECT_TRUE(data("db/laid.txt").starts_with("Tovik 0.1.0\n"));
    fs::permissions(folder_ / "data/skins/CurrentSkin", fs::perms(0755));
    EXPECT_EQ(upgrade(), "");
    EXPECT_EQ(data("skins/CurrentSkin/main.bmp"), "new");
    EXPECT_EQ(data("skins/base.tsf"), folder_.read("0.2.0/skins/base.tsf"));
    EXPECT_TRUE(data("db/laid.txt").starts_with("Tovik 0.2.0\n"));
}

TEST_F(UpgradeTest, aFolderOfTheTimeBeforeIsCompletedAndRemembers) {
    fs::remove(folder_ / "data/db/laid.txt");
    fs::remove(folder_ / "data/vh.txt");
    folder_.write("data/Languages/Slovenian.lng", "new");
    EXPECT_EQ(upgrade(), "");
    EXPECT_EQ(data("Languages/English.lng"), "old"); // nobody knows who wrote it
    EXPECT_EQ(data("vh.txt"), "new");
    const std::string memory = data("db/laid.txt");
    EXPECT_NE(memory.find(base::digestOf("new") + " Languages/Slovenian.lng\n"), std::string::npos);
    EXPECT_EQ(memory.find("English"), std::string::npos);
}

TEST_F(UpgradeTest, aFolderThatIsWhatIsShippedIsLeftAlone) {
    app::upgradeDataFolder(folder_ / "0.2.0", folder_ / "0.2.0/.", "0.2.0");
    EXPECT_FALSE(fs::exists(folder_ / "0.2.0/db/laid.txt"));
    app::upgradeDataFolder(folder_ / "data", "", "0.2.0");
    EXPECT_EQ(data("Languages/English.lng"), "old");
}

} // namespace
} // namespace tovik::test
