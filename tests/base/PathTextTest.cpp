// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/PathText.h"

#include <gmock/gmock.h>

namespace tovik::base {
namespace {

using testing::ElementsAre;

TEST(PathText, slashSeparatesAndWithoutOneTheBackslash) {
    EXPECT_EQ(separatorOf("/a/b"), '/');
    EXPECT_EQ(separatorOf("c:\\a"), '\\');
    EXPECT_EQ(separatorOf("/a\\b"), '/');
    EXPECT_EQ(lastPart("/music/a\\b.mp3"), "a\\b.mp3");
    EXPECT_EQ(lastPart("c:\\music\\b.mp3"), "b.mp3");
    EXPECT_EQ(lastPart("b.mp3"), "b.mp3");
    EXPECT_EQ(lastPart("/music/"), "");
    EXPECT_EQ(folderPart("/music/x/b.mp3"), "/music/x");
    EXPECT_EQ(folderPart("/b.mp3"), "/");
    EXPECT_EQ(folderPart("c:\\music\\b.mp3"), "c:\\music");
    EXPECT_EQ(folderPart("b.mp3"), "");
}

TEST(PathText, parts) {
    EXPECT_THAT(partsOf("\\db\\settings.xml"), ElementsAre("db", "settings.xml"));
    EXPECT_THAT(partsOf("//a//b/"), ElementsAre("a", "b"));
    EXPECT_THAT(partsOf("a\\b/c"), ElementsAre("a\\b", "c"));
    EXPECT_THAT(partsOf(""), ElementsAre());
    EXPECT_THAT(partsOf("/"), ElementsAre());
}

TEST(PathText, joining) {
    EXPECT_EQ(joinPath("/a", "b"), "/a/b");
    EXPECT_EQ(joinPath("/", "b"), "/b");
    EXPECT_EQ(absolutePath("/x", "/home"), "/x");
    EXPECT_EQ(absolutePath("x", "/home"), "/home/x");
    EXPECT_EQ(absolutePath("././x", "/home"), "/home/x");
    EXPECT_EQ(absolutePath("../x", "/home"), "/home/../x");
    EXPECT_EQ(absolutePath("caf\xE9", "/"), "/caf\xE9");
}

} // namespace
} // namespace tovik::base
