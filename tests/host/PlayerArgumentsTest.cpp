// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/PlayerArguments.h"

#include <gmock/gmock.h>

namespace tovik::host {
namespace {

using testing::ElementsAre;

PlayerArguments from(std::vector<std::string_view> words) {
    return playerArguments(words, "/home/ana");
}

TEST(PlayerArguments, filesBecomeAbsoluteInQuotes) {
    const PlayerArguments arguments = from({"a b.mp3", "/c/d.ogg", "./e.wav"});
    EXPECT_EQ(arguments.text, "\"/home/ana/a b.mp3\" \"/c/d.ogg\" \"/home/ana/e.wav\"");
    EXPECT_THAT(arguments.files, ElementsAre("/home/ana/a b.mp3", "/c/d.ogg", "/home/ana/e.wav"));
}

TEST(PlayerArguments, onlyTheExactWordsAreSwitches) {
    for (const char* word : {"/Play", "/ADD", "/Open", "/play", "/PLAY", "/add", "/open"}) {
        const PlayerArguments arguments = from({word, "a"});
        EXPECT_EQ(arguments.text, std::string(word) + " \"/home/ana/a\"");
        EXPECT_THAT(arguments.files, ElementsAre("/home/ana/a"));
    }
    for (const char* word : {"/Play.mp3", "/home/x", "/Playlist", "/"}) {
        EXPECT_EQ(from({word}).text, "\"" + std::string(word) + "\"");
    }
    EXPECT_EQ(from({"Play"}).text, "\"/home/ana/Play\"");
}

TEST(PlayerArguments, addresses) {
    EXPECT_THAT(from({"http://r.example/a?b=c"}).files, ElementsAre("http://r.example/a?b=c"));
    EXPECT_THAT(from({"file:///m/a%20b.mp3"}).files, ElementsAre("/m/a b.mp3"));
    EXPECT_THAT(from({"file://else/a"}).files, ElementsAre("file://else/a"));
    EXPECT_THAT(from({"a:b.mp3"}).files, ElementsAre("/home/ana/a:b.mp3"));
}

TEST(PlayerArguments, aDoubleQuoteTravelsAsAnotherByte) {
    const PlayerArguments arguments = from({"/say \"hi\".mp3"});
    EXPECT_EQ(arguments.text, "\"/say \x1Fhi\x1F.mp3\"");
    EXPECT_THAT(arguments.files, ElementsAre("/say \"hi\".mp3"));
    EXPECT_EQ(withQuotes("/say \x1Fhi\x1F.mp3"), "/say \"hi\".mp3");
}

TEST(PlayerArguments, bytesStayAsTheyAre) {
    EXPECT_EQ(from({"caf\xE9\n.mp3"}).text, "\"/home/ana/caf\xE9\n.mp3\"");
}

TEST(PlayerArguments, nothingAndEmptyWords) {
    EXPECT_EQ(from({}).text, "");
    EXPECT_EQ(from({"", "a", ""}).text, "\"/home/ana/a\"");
    EXPECT_EQ(from({"/Play"}).text, "/Play");
}

} // namespace
} // namespace tovik::host
