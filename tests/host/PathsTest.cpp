// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/Paths.h"
#include "support/host/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tovik::host {
namespace {

class PathsTest : public testing::Test {
protected:
    test::TemporaryFolder folder_;
    Paths paths_{folder_.path()};
};

TEST_F(PathsTest, everyItemHasItsName) {
    EXPECT_EQ(paths_.dataFolder(), folder_.path());
    EXPECT_EQ(paths_.of(DataItem::Settings), folder_ / "db/settings.xml");
    EXPECT_EQ(paths_.of(DataItem::AutosaveList), folder_ / "db/autosave.m3u");
    EXPECT_EQ(paths_.of(DataItem::ErrorLog), folder_ / "db/err.log");
    EXPECT_EQ(paths_.of(DataItem::Stations), folder_ / "db/stations.dat");
    EXPECT_EQ(paths_.of(DataItem::Languages), folder_ / "Languages");
    EXPECT_EQ(paths_.of(DataItem::SkinPackage), folder_ / "skins/base.tsf");
    EXPECT_EQ(paths_.of(DataItem::CurrentSkin), folder_ / "skins/CurrentSkin");
    EXPECT_EQ(paths_.of(DataItem::VisualPlugins), folder_ / "Plugins/Vis");
    EXPECT_EQ(paths_.of(DataItem::DiscFiles), folder_ / "CDDB");
    EXPECT_EQ(paths_.of(DataItem::FirstRun), folder_ / "firstrun.ini");
    EXPECT_EQ(paths_.of(DataItem::ConversionLog), folder_ / "Tovik.log");
    EXPECT_EQ(paths_.of(DataItem::DriveC), folder_ / "drive_c");
    EXPECT_EQ(paths_.of(DataItem::InstanceLock), folder_ / "tovik.lock");
}

TEST_F(PathsTest, foundAsWrittenThenWithoutRegardToCase) {
    folder_.write("DB/Settings.XML", "");
    EXPECT_EQ(paths_.of(DataItem::Settings), folder_ / "DB/Settings.XML");
    folder_.write("db/settings.xml", "");
    EXPECT_EQ(paths_.of(DataItem::Settings), folder_ / "db/settings.xml");
}

TEST_F(PathsTest, ofSeveralTheFirstByBytes) {
    folder_.write("languages/ENGLISH.LNG", "");
    folder_.write("languages/english.lng", "");
    EXPECT_EQ(paths_.inside("Languages\\English.lng"), folder_ / "languages/ENGLISH.LNG");
}

TEST_F(PathsTest, whatDoesNotExistStaysAsWritten) {
    folder_.write("SKINS/x", "");
    EXPECT_EQ(paths_.inside("\\skins\\New\\A.bmp"), folder_ / "SKINS/New/A.bmp");
    EXPECT_EQ(paths_.inside(""), folder_.path());
}

} // namespace
} // namespace tovik::host
