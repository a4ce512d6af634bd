// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/ListKeeper.h"

#include "playlist/Lists.h"
#include "support/host/TestHost.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tovik::playlist {
namespace {

class ListKeeperTest : public testing::Test {
protected:
    static constexpr const char* kFile = "db/autosave.new.m3u";

    ListKeeperTest() { host_.folder.write("db/autosave.m3u", "#EXTM3U\r\n"); }

    /// Lets the time pass, and what is begun in it come to its end.
    void advance(std::int64_t milliseconds) {
        host_.clock.advanceTo(host_.clock.monotonicMs() + milliseconds);
        keeper_.wait();
    }

    bool written() const { return std::filesystem::exists(host_.folder / kFile); }

    std::string file() const { return host_.folder.read(kFile); }

    test::TestHost host_;
    stdSS list_;
    bool kept_ = true;
    ListKeeper keeper_{list_, host_.clock, host_.clock, host_.paths, [this] { return kept_; }};
};

TEST_F(ListKeeperTest, theListIsWrittenFiveSecondsAfterItsLastChange) {
    fill(list_, {"a"});
    advance(4000);
    fill(list_, {"b"});
    advance(4999);
    EXPECT_FALSE(written());
    advance(1);
    EXPECT_EQ(file(), "#EXTM3U\r\n#EXTINF:1,a\r\n/a\r\n#EXTINF:2,b\r\n/b\r\n");
    EXPECT_EQ(host_.folder.read("db/autosave.m3u"), "#EXTM3U\r\n");
}

TEST_F(ListKeeperTest, everyChangeCountsAndNothingElse) {
    fill(list_, {"a", "b", "c"});
    advance(5000);
    const auto rewritten = [this] {
        std::filesystem::remove(host_.folder / kFile);
        advance(5000);
        return written();
    };
    EXPECT_FALSE(rewritten());
    list_.SelectIndex(2);
    list_.Play(1);
    list_.GetData(3);
    EXPECT_FALSE(rewritten());
    list_.RefreshTitle(1, "x");
    EXPECT_TRUE(rewritten());
    list_.RefreshTime(1, 77, "01:17");
    EXPECT_TRUE(rewritten());
    list_.AddFileName2(1, "/x");
    EXPECT_TRUE(rewritten());
    list_.MoveRow(1, 4);
    EXPECT_TRUE(rewritten());
    list_.MoveRow(3, 1);
    list_.Remove(2);
    EXPECT_TRUE(rewritten());
    EXPECT_EQ(file(), "#EXTM3U\r\n#EXTINF:77,x\r\n/x\r\n#EXTINF:3,c\r\n/c\r\n");
    list_.Clear();
    EXPECT_TRUE(rewritten());
    EXPECT_EQ(file(), "#EXTM3U\r\n");
}

TEST_F(ListKeeperTest, aListThatIsNotKeptIsNotWritten) {
    kept_ = false;
    fill(list_, {"a"});
    advance(20000);
    EXPECT_FALSE(written());
    kept_ = true;
    fill(list_, {"b"});
    advance(5000);
    EXPECT_TRUE(written());
}

TEST_F(ListKeeperTest, readingTheSavedListIsNoChange) {
    {
        const ListKeeper::Loading loading(keeper_);
        fill(list_, {"a", "b"});
    }
    advance(20000);
    EXPECT_FALSE(written());
    {
        const ListKeeper::Loading loading(keeper_);
        list_.Remove(1); // not by the read
    }
    advance(5000);
    EXPECT_TRUE(written());
}

TEST_F(ListKeeperTest, nothingIsWrittenAfterTheEnd) {
    fill(list_, {"a"});
    keeper_.end();
    fill(list_, {"b"});
    advance(20000);
    EXPECT_FALSE(written());
}

TEST_F(ListKeeperTest, whatIsOfNoMoreUseIsRemoved) {
    host_.folder.write(kFile, "left by another session");
    keeper_.remove(false); // neither saved nor written here
    EXPECT_TRUE(written());
    keeper_.remove(true);
    EXPECT_FALSE(written());
    fill(list_, {"a"});
    advance(5000);
    EXPECT_TRUE(written());
    keeper_.remove(false);
    EXPECT_FALSE(written());
    keeper_.remove(true);
}

TEST_F(ListKeeperTest, aWriteThatFailsHarmsNothing) {
    std::filesystem::remove_all(host_.folder / "db");
    fill(list_, {"a"});
    advance(5000);
    EXPECT_FALSE(written());
    std::filesystem::create_directory(host_.folder / "db");
    fill(list_, {"b"});
    advance(5000);
    EXPECT_TRUE(written());
}

TEST_F(ListKeeperTest, ofManyTextsTheNewestIsOnTheDiskAtTheEnd) {
    ListWriter writer;
    std::string text;
    for (int n = 0; n < 200; ++n) {
        text += "line\r\n";
        writer.write(host_.folder / "list", text);
    }
    writer.wait();
    EXPECT_EQ(host_.folder.read("list"), text);
}

} // namespace
} // namespace tovik::playlist
