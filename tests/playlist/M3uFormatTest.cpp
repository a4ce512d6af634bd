// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/M3uFormat.h"

#include <gtest/gtest.h>

namespace tovik::playlist {
namespace {

TEST(M3uFormat, onlyTheFirstCommaCounts) {
    const auto info = parseM3uInfo("#EXTINF:215,A, B");
    ASSERT_TRUE(info);
    EXPECT_EQ(info->title, "A, B");
    EXPECT_EQ(info->seconds, "215");
}

TEST(M3uFormat, aColonInTheTitleDoesNoHarm) {
    const auto info = parseM3uInfo("#EXTINF:-1,A: B");
    ASSERT_TRUE(info);
    EXPECT_EQ(info->title, "A: B");
    EXPECT_EQ(info->seconds, "-1");
}

TEST(M3uFormat, withoutACommaThereIsNothing) {
    EXPECT_FALSE(parseM3uInfo("#EXTINF"));
    EXPECT_FALSE(parseM3uInfo("#EXTINF:215"));
}

TEST(M3uFormat, withoutAColonThereIsNoLength) {
    const auto info = parseM3uInfo("#EXTINF,Title");
    ASSERT_TRUE(info);
    EXPECT_EQ(info->title, "Title");
    EXPECT_FALSE(info->seconds);
}

TEST(M3uFormat, aCommaAheadOfTheColonLeavesATextThatIsNoNumber) {
    const auto info = parseM3uInfo("#EXTINF,12:34");
    ASSERT_TRUE(info);
    EXPECT_EQ(info->title, "12:34");
    EXPECT_EQ(info->seconds, "");
}

TEST(M3uFormat, emptyTitleAndLength) {
    const auto info = parseM3uInfo("#EXTINF:,");
    ASSERT_TRUE(info);
    EXPECT_EQ(info->title, "");
    EXPECT_EQ(info->seconds, "");
}

TEST(M3uFormat, fileNamesLoseBlanksAtTheEndOnly) {
    EXPECT_EQ(m3uFileName("  /a b.mp3  "), "  /a b.mp3");
    EXPECT_EQ(m3uFileName("/a\t"), "/a\t");
    EXPECT_EQ(m3uFileName("   "), "");
    EXPECT_EQ(m3uFileName(""), "");
}

TEST(M3uFormat, writesWhatItReads) {
    std::string list;
    appendM3uHead(list);
    appendM3uEntry(list, 215, "First song", "C:\\Music\\first.mp3");
    appendM3uEntry(list, -1, "", "http://x/");
    EXPECT_EQ(list, "#EXTM3U\r\n#EXTINF:215,First song\r\nC:\\Music\\first.mp3\r\n"
                    "#EXTINF:-1,\r\nhttp://x/\r\n");
}

TEST(M3uFormat, aLineBreakCannotBreakTheList) {
    std::string list;
    appendM3uEntry(list, 1, "a\r\nb", "/c\n#EXTINF:x,y");
    EXPECT_EQ(list, "#EXTINF:1,a  b\r\n/c #EXTINF:x,y\r\n");
}

} // namespace
} // namespace tovik::playlist
