// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CommandText.h"

#include <gmock/gmock.h>

namespace tovik::base {
namespace {

using testing::ElementsAre;

TEST(CommandText, quotesEncloseTheFileAndNoSwitchIsLookedAt) {
    EXPECT_THAT(commandArguments(R"(/Play "c:\a.mp3")"), ElementsAre("/Play ", R"(c:\a.mp3)", ""));
    EXPECT_THAT(commandArguments(R"(/ADD "/music/a b.mp3")"),
                ElementsAre("/ADD ", "/music/a b.mp3", ""));
    EXPECT_THAT(commandArguments(R"("/a" "/b")"), ElementsAre("", "/a", " ", "/b", ""));
}

TEST(CommandText, withoutQuotesTheWholeTextIsTheFile) {
    EXPECT_THAT(commandArguments("song.mp3"), ElementsAre("song.mp3", "song.mp3"));
    EXPECT_THAT(commandArguments("/x"), ElementsAre("", "/x", ""));
    EXPECT_THAT(commandArguments("/music/a.mp3"), ElementsAre("", "/music/a.mp3", "a.mp3", ""));
}

TEST(CommandText, aLoneQuoteStillGivesTwoPieces) {
    EXPECT_THAT(commandArguments("\""), ElementsAre("", ""));
    EXPECT_THAT(commandArguments("\"/a b"), ElementsAre("", "/a b"));
    EXPECT_THAT(commandArguments("/a\""), ElementsAre("/a", ""));
}

TEST(CommandText, anEmptyTextGivesTwoEmptyPieces) {
    EXPECT_THAT(commandArguments(""), ElementsAre("", ""));
}

TEST(CommandText, handingOverTakesTheQuotedPath) {
    EXPECT_EQ(handedOverPath(R"(/Play "c:\a.mp3")"), R"(c:\a.mp3)");
    EXPECT_EQ(handedOverPath(R"("/music/a.mp3")"), "/music/a.mp3");
    EXPECT_EQ(handedOverPath(R"("" x)"), "");
}

TEST(CommandText, handingOverWithoutQuotesTakesTheSwitch) {
    EXPECT_EQ(handedOverPath("/x"), "x");
    EXPECT_EQ(handedOverPath("/Play /music"), "Play ");
    EXPECT_EQ(handedOverPath("song.mp3"), "");
    EXPECT_EQ(handedOverPath(""), "");
}

TEST(CommandText, switchesAndFilesTakenApart) {
    using Files = std::vector<std::string>;
    EXPECT_EQ(commandWords(R"(/ADD "/a b.mp3" "/c.mp3")"),
              (CommandWords{.adds = true, .files = {"/a b.mp3", "/c.mp3"}}));
    EXPECT_EQ(commandWords(R"(/Play "/a.mp3")"), (CommandWords{.files = {"/a.mp3"}}));
    EXPECT_EQ(commandWords(R"("/a.mp3" /add)"), (CommandWords{.adds = true, .files = {"/a.mp3"}}));
    EXPECT_FALSE(commandWords(R"("/ADD")").adds); // a name
    EXPECT_EQ(commandWords("/Open /add"), (CommandWords{.adds = true}));
    EXPECT_EQ(commandWords("/music/a b.mp3").files, Files{"/music/a b.mp3"});
    EXPECT_EQ(commandWords(""), CommandWords());
    EXPECT_EQ(commandWords("\"").files, Files());
    EXPECT_EQ(commandWords("\"/a").files, Files{"/a"});
}

} // namespace
} // namespace tovik::base
