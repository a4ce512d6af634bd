// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/FreshTags.h"

#include "host/Dialogs.h"
#include "support/host/RecordingDialogs.h"
#include "support/host/TemporaryFolder.h"
#include "tags/cMP3ID3v1.h"
#include "tags/ShownField.h"

#include <gtest/gtest.h>

namespace tovik::tags {
namespace {

using namespace std::string_literals;

FreshTags song() {
    return {.title = "Song", .artist = "Ann", .album = "Al", .year = "1999", .track = 7};
}

TEST(FreshTagsTest, theHeadIsAnId3v23Tag) {
    EXPECT_EQ(freshHead({.title = "Song", .artist = "\xC3\x84nn"}), "ID3\x03\0\0\0\0\0\x1D"s
                                                                    "TIT2\0\0\0\x05\0\0\0Song"s
                                                                    "TPE1\0\0\0\x04\0\0\0\xC4nn"s);
    EXPECT_EQ(freshHead({}), "ID3\x03\0\0\0\0\0\0"s);
}

TEST(FreshTagsTest, whatIsNotLatinIsUtf16) {
    EXPECT_EQ(freshHead({.title = "\xD0\x96\xF0\x9F\x98\x80"}),
              "ID3\x03\0\0\0\0\0\x13"s
              "TIT2\0\0\0\x09\0\0\x01\xFF\xFE\x16\x04\x3D\xD8\x00\xDE"s);
}

TEST(FreshTagsTest, theSizeHasSevenBitsAByte) {
    const std::string head = freshHead({.title = std::string(300, 'x')});
    EXPECT_EQ(head.substr(6, 4), "\0\0\x02\x37"s); // 311 = 2 * 128 + 55
    EXPECT_EQ(head.size(), 10U + 311U);
    EXPECT_LT(freshHead({.title = std::string(100'000, 'x')}).size(), 10'000U);
}

TEST(FreshTagsTest, theTailIsAnId3v11Tag) {
    const std::string tail = freshTail(song());
    ASSERT_EQ(tail.size(), 128U);
    EXPECT_EQ(tail.substr(0, 7), "TAGSong");
    EXPECT_EQ(tail.substr(125), "\0\x07\xFF"s);
    EXPECT_EQ(freshTail({.genreNumber = 17}).back(), '\x11');
    EXPECT_EQ(freshTail({.title = "\xC3\x84"}).substr(3, 2), "\xC4 ");
}

TEST(FreshTagsTest, aFileGetsBothAndKeepsItsSound) {
    const test::TemporaryFolder folder;
    const std::string sound = "\xFF\xFB\x90 sound" + std::string(5000, 's');
    const std::string path = folder.write("a.mp3", sound);
    EXPECT_FALSE(tagFreshFile(path, song()));
    EXPECT_EQ(folder.read("a.mp3"), freshHead(song()) + sound + freshTail(song()));
    test::RecordingDialogs dialogs;
    TagWarning warning(dialogs);
    cMP3ID3v1 tag(warning);
    tag.MP3File(path);
    EXPECT_EQ(shownField(tag.Title()), "Song");
    EXPECT_EQ(shownField(tag.Album()), "Al");
    EXPECT_EQ(tag.track(), 7);
    EXPECT_TRUE(tagFreshFile(folder / "none.mp3", song()));
}

} // namespace
} // namespace tovik::tags
