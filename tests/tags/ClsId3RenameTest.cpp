// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/clsID3.h"

#include "Samples.h"
#include "support/host/RecordingDialogs.h"
#include "support/host/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tovik::tags {
namespace {

using namespace samples;
namespace fs = std::filesystem;

class ClsId3Rename : public testing::Test {
protected:
    void SetUp() override { open(field("Title", 30)); }

    void open(const std::string& title) {
        info_.FullName(folder_.write("song.mp3", sound(200) + "TAG" + title + field("Artist", 30) +
                                                     field("Album", 30) + "1999" +
                                                     field("Comment", 30) + "\x11"));
        info_.ReadMP3Info();
    }

    test::TemporaryFolder folder_;
    test::RecordingDialogs dialogs_;
    clsID3 info_{dialogs_};
};

TEST_F(ClsId3Rename, fillsInAllLetters) {
    // 83,528 bytes at 128 kbit/s: five seconds.
    std::string format = "%a-%t-%n-%i-%y-%g-%c %b %f %s %x %l %v";
    EXPECT_EQ(info_.RenameFile(format), 1);
    const std::string name = "Artist-Album-Title-Artist-1999-Rock-Comment 128 44100 5 Joint Stereo "
                             "3 1.0 (0.05).mp3";
    EXPECT_EQ(format, name);
    EXPECT_EQ(info_.FileName(), name);
    EXPECT_EQ(info_.FullName(), folder_ / name);
    EXPECT_TRUE(fs::exists(folder_ / name));
    EXPECT_FALSE(fs::exists(folder_ / "song.mp3"));
    EXPECT_TRUE(dialogs_.boxes.empty());
}

TEST_F(ClsId3Rename, replacesWhatANameCannotHold) {
    open(field("a\"b*c?d/e\\f:g<h>i|j\n"
               "k\x01",
               30));
    std::string format = "%n";
    EXPECT_EQ(info_.RenameFile(format), 1);
    EXPECT_EQ(format, "a'bcdef.g[h]ij k (0.05).mp3");
}

TEST_F(ClsId3Rename, aDanglingEndIsShownTwice) {
    for (const std::string end : {"-", "_"}) {
        SetUp();
        dialogs_.boxes.clear();
        std::string format = "%n" + end + "  ";
        EXPECT_EQ(info_.RenameFile(format), 1);
        EXPECT_EQ(format, "Title (0.05).mp3");
        ASSERT_EQ(dialogs_.boxes.size(), 2U);
        EXPECT_EQ(dialogs_.boxes[0].text, "Title" + end);
        EXPECT_EQ(dialogs_.boxes[1].text, "Title");
        fs::remove(folder_ / format);
    }
}

TEST_F(ClsId3Rename, nothingIsReplacedAndNothingMissingRenamed) {
    folder_.write("Title (0.05).mp3", "other");
    std::string format = "%n";
    EXPECT_EQ(info_.RenameFile(format), -1);
    EXPECT_EQ(folder_.read("Title (0.05).mp3"), "other");
    EXPECT_EQ(info_.FileName(), "song.mp3");
    EXPECT_TRUE(fs::exists(folder_ / "song.mp3"));
}

TEST_F(ClsId3Rename, withoutATagNothingHappens) {
    info_.FullName(folder_.write("plain.mp3", sound(3)));
    info_.ReadMP3Info();
    std::string format = "%n";
    EXPECT_EQ(info_.RenameFile(format), std::nullopt);
    EXPECT_EQ(format, "%n");
    EXPECT_TRUE(fs::exists(folder_ / "plain.mp3"));
}

} // namespace
} // namespace tovik::tags
