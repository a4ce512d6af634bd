// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/Messenger.h"

#include "player/PlayerRig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tovik::desktop {
namespace {

using namespace std::string_literals;

/// The text of a record, whose characters are ASCII, without the zero at its end.
std::string textOf(const host::MessengerRecord& record) {
    std::string text;
    for (std::size_t i = 0; i + 2 < record.lpData.size(); i += 2) {
        EXPECT_EQ(record.lpData.at(i + 1), '\0');
        text += record.lpData.at(i);
    }
    return text;
}

TEST(MessengerText, byteForByte) {
    const host::MessengerRecord record =
        messengerRecord({.enabled = true, .format = "{0}", .value1 = "\xC4\x8D\U0001F600"});
    EXPECT_EQ(record.dwData, 1351U);
    EXPECT_EQ(record.lpData, "\\\0000\0M\0u\0s\0i\0c\0\\\0000\0001\0\\\0000\0{\0000\0}\0\\\0000\0"
                             "\x0D\x01\x3D\xD8\x00\xDE"
                             "\\\0000\0\\\0000\0\\\0000\0\\\0000\0\0\0"s);
}

TEST(MessengerText, cleared) {
    EXPECT_EQ(textOf(messengerRecord({})), R"(\0Music\00\0{0} - {1}\0\0\0\0\0)");
}

TEST(MessengerText, fourValues) {
    EXPECT_EQ(textOf(messengerRecord({.category = "c",
                                      .enabled = true,
                                      .format = "f",
                                      .value1 = "1",
                                      .value2 = "2",
                                      .value3 = "3",
                                      .value4 = "4"})),
              R"(\0c\01\0f\01\02\03\04\0)");
}

class Windows final : public host::MessengerWindows {
public:
    std::vector<std::string> sent;

    void send(const host::MessengerRecord& record) override { sent.push_back(textOf(record)); }
};

class MessengerStatusTest : public test::PlayerRig {
protected:
    void show(const std::string& artist, const std::string& title) {
        core_.screen.playing.fields.at(0) = artist;
        core_.screen.playing.fields.at(1) = title;
    }

    Windows windows_;
    Messenger messenger_{core_, windows_};
};

TEST_F(MessengerStatusTest, offClearsAtEachTrack) {
    show("a", "b");
    messenger_.reportTrack({});
    EXPECT_THAT(windows_.sent, testing::ElementsAre(R"(\0Music\00\0{0} - {1}\0\0\0\0\0)"));
}

TEST_F(MessengerStatusTest, artistAndTitle) {
    core_.state.MessengerOn = true;
    show(" Artist ", "Title  ");
    messenger_.reportTrack({});
    EXPECT_THAT(windows_.sent,
                testing::ElementsAre(R"(\0Music\01\0{0} - {1}\0Artist\0Title\0\0\0)"));
}

TEST_F(MessengerStatusTest, unknownArtistOrTitleTellsTheWholeTitle) {
    core_.state.MessengerOn = true;
    core_.state.CurrentTitle = "  " + std::string(300, 'x');
    const std::string told = R"(\0Music\01\0{0}\0)" + std::string(256, 'x') + R"(\0\0\0\0)";
    show("N/A", "Title");
    messenger_.reportTrack({});
    show("Artist", "N/A");
    messenger_.reportTrack({});
    EXPECT_THAT(windows_.sent, testing::ElementsAre(told, told));
}

TEST_F(MessengerStatusTest, nothingPlays) {
    core_.state.MessengerOn = true;
    show("Artist", "Title");
    messenger_.reportNothing(player::kNothingFormat, player::kNothingWord);
    EXPECT_THAT(windows_.sent, testing::ElementsAre(R"(\0Music\00\0{0} - {1}\0\0\0\0\0)"));
}

TEST_F(MessengerStatusTest, factsThatComeLaterAreToldToo) {
    core_.state.MessengerOn = true;
    core_.news.add(messenger_);
    show("Band", "Song");
    core_.news.reportFacts({});
    core_.news.remove(messenger_);
    EXPECT_THAT(windows_.sent, testing::ElementsAre(R"(\0Music\01\0{0} - {1}\0Band\0Song\0\0\0)"));
}

TEST_F(MessengerStatusTest, factsThatChangeNothingAreNotToldAgain) {
    core_.state.MessengerOn = true;
    show("Band", "Song");
    messenger_.reportTrack({});
    messenger_.reportFacts({});
    EXPECT_THAT(windows_.sent, testing::SizeIs(1));
    show("Band", "Song 2");
    messenger_.reportFacts({});
    messenger_.reportFacts({});
    EXPECT_THAT(windows_.sent, testing::SizeIs(2));
    messenger_.reportNothing(player::kNothingFormat, player::kNothingWord);
    messenger_.reportFacts({});
    EXPECT_THAT(windows_.sent, testing::SizeIs(4));
    messenger_.reportTrack({}); // another track is news, whatever it is called
    EXPECT_THAT(windows_.sent, testing::SizeIs(5));
}

TEST_F(MessengerStatusTest, aStartedTrackIsTold) {
    core_.state.MessengerOn = true;
    core_.news.add(messenger_);
    const test::TagTexts tag{.title = "Song", .artist = "Band"};
    ASSERT_TRUE(burn(track("a.mp3", {}, 1000, &tag)));
    EXPECT_EQ(windows_.sent.back(), R"(\0Music\01\0{0} - {1}\0Band\0Song\0\0\0)");
    transport_.Stop_play();
    EXPECT_EQ(windows_.sent.back(), R"(\0Music\00\0{0} - {1}\0\0\0\0\0)");
    core_.news.remove(messenger_);
}

} // namespace
} // namespace tovik::desktop
