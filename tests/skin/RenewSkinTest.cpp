// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/RenewSkin.h"

#include "base/RuntimeError.h"
#include "skin/SkinPackage.h"
#include "support/host/TemporaryFolder.h"
#include "support/host/Unprivileged.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tovik::skin {
namespace {

namespace fs = std::filesystem;

class RenewSkinTest : public testing::Test {
protected:
    [[nodiscard]] std::string picture(const std::string& name) const {
        return folder_.read("skins/CurrentSkin/" + name);
    }

    void put(const std::string& name, const std::string& bytes) const {
        folder_.write("skins/CurrentSkin/" + name, bytes);
    }

    test::TemporaryFolder folder_;
    host::Paths paths_{folder_.path()};
    std::string older_ = skinPackage({{"main.bmp", "old"}, {"play.bmp", "same"}}, "");
    std::string newer_ =
        skinPackage({{"main.bmp", "new"}, {"play.bmp", "same"}, {"eq.bmp", "eq"}}, "");
};

TEST_F(RenewSkinTest, missingPicturesComeFromTheNewPackage) {
    put("main.bmp", "mine");
    renewSkin(paths_, newer_, {});
    EXPECT_EQ(picture("main.bmp"), "mine");
    EXPECT_EQ(picture("play.bmp"), "same");
    EXPECT_EQ(picture("eq.bmp"), "eq");
}

TEST_F(RenewSkinTest, picturesOfTheOldPackageAreRenewed) {
    put("main.bmp", "old");
    put("play.bmp", "mine");
    renewSkin(paths_, newer_, older_);
    EXPECT_EQ(picture("main.bmp"), "new");
    EXPECT_EQ(picture("play.bmp"), "mine");
    put("main.bmp", "mine");
    renewSkin(paths_, newer_, older_);
    EXPECT_EQ(picture("main.bmp"), "mine");
}

TEST_F(RenewSkinTest, withoutTheOldPackageNobodyKnowsWhoDrewThem) {
    put("main.bmp", "old");
    renewSkin(paths_, newer_, {});
    EXPECT_EQ(picture("main.bmp"), "old");
}

TEST_F(RenewSkinTest, namesInAnotherCaseAreTheSamePicture) {
    put("MAIN.bmp", "old");
    put("Eq.BMP", "mine");
    renewSkin(paths_, newer_, older_);
    EXPECT_EQ(picture("MAIN.bmp"), "new");
    EXPECT_EQ(picture("Eq.BMP"), "mine");
    EXPECT_FALSE(fs::exists(folder_ / "skins/CurrentSkin/eq.bmp"));
}

TEST_F(RenewSkinTest, whatIsNotUnpackedIsLeftToTheUnpacking) {
    renewSkin(paths_, newer_, older_);
    EXPECT_FALSE(fs::exists(folder_ / "skins"));
    fs::create_directories(folder_ / "skins/CurrentSkin");
    renewSkin(paths_, newer_, older_);
    EXPECT_TRUE(fs::is_empty(folder_ / "skins/CurrentSkin"));
}

TEST_F(RenewSkinTest, aDamagedPackageIsToldAndChangesNothing) {
    put("main.bmp", "old");
    EXPECT_THROW(renewSkin(paths_, newer_.substr(0, newer_.size() - 3), older_),
                 base::RuntimeError);
    EXPECT_EQ(picture("main.bmp"), "old");
    std::string other = newer_;
    other.front() = 'x';
    renewSkin(paths_, other, older_);
    EXPECT_EQ(picture("main.bmp"), "old");
    EXPECT_FALSE(fs::exists(folder_ / "skins/CurrentSkin/eq.bmp"));
}

TEST_F(RenewSkinTest, aFolderThatCannotBeWrittenIsTold) {
    put("main.bmp", "old");
    fs::permissions(folder_.path(), fs::perms(0755));
    fs::permissions(folder_ / "skins/CurrentSkin", fs::perms(0555));
    {
        const test::Unprivileged user;
        EXPECT_THROW(renewSkin(paths_, newer_, older_), base::RuntimeError);
    }
    EXPECT_EQ(picture("main.bmp"), "old");
}

} // namespace
} // namespace tovik::skin
