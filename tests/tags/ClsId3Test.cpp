// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/clsID3.h"

#include "base/RuntimeError.h"
#include "Samples.h"
#include "support/host/RecordingDialogs.h"
#include "support/host/TemporaryFolder.h"
#include "tags/InfoGenres.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

namespace tovik::tags {
namespace {

using namespace samples;
namespace fs = std::filesystem;

std::string infoTag(char genre = 17) {
    return "TAG" + field("Title", 30) + field("Artist", 30) + field("Album", 30) + "1999" +
           field("Comment", 28) + "\0\x07"s + genre;
}

template <typename Operation>
int errorOf(const Operation& operation) {
    try {
        operation();
    } catch (const base::RuntimeError& error) {
        return error.number();
    }
    return 0;
}

class ClsId3 : public testing::Test {
protected:
    std::string open(const std::string& bytes) {
        info_.FullName(folder_.write("song.mp3", bytes));
        return info_.ReadHeader();
    }

    void read(const std::string& bytes) {
        info_.FullName(folder_.write("song.mp3", bytes));
        EXPECT_EQ(info_.ReadMP3Info(), std::nullopt);
    }

    [[nodiscard]] std::string file() const { return folder_.read("song.mp3"); }

    test::TemporaryFolder folder_;
    test::RecordingDialogs dialogs_;
    clsID3 info_{dialogs_};
    const std::string sound_ = sound(10);
};

TEST_F(ClsId3, aPathIsSplitAtTheLastSeparator) {
    info_.FullName("/a/b\\c.mp3");
    EXPECT_EQ(info_.Path(), "/a/");
    EXPECT_EQ(info_.FileName(), "b\\c.mp3");
    EXPECT_EQ(info_.FullName(), "/a/b\\c.mp3");
    info_.FullName("C:\\a\\b.mp3");
    EXPECT_EQ(info_.Path(), "C:\\a\\");
    EXPECT_EQ(info_.FileName(), "b.mp3");
    info_.FullName("b.mp3");
    EXPECT_EQ(info_.Path(), "");
    EXPECT_EQ(info_.FileName(), "b.mp3");
}

TEST_F(ClsId3, readsTheFirstHeader) {
    EXPECT_EQ(open(sound_), "");
    EXPECT_EQ(info_.MPEGVersion(), "1.0");
    EXPECT_EQ(info_.Layer(), "3");
    EXPECT_EQ(info_.bitrate(), "128");
    EXPECT_EQ(info_.SampleRate(), "44100");
    EXPECT_EQ(info_.ChannelMode(), "Joint Stereo");
    EXPECT_EQ(info_.ModeExtension(), "00");
    EXPECT_EQ(info_.Emphasis(), "None");
    EXPECT_FALSE(info_.Copyright());
    EXPECT_TRUE(info_.Original());
    EXPECT_FALSE(info_.CRCPresent());
    EXPECT_EQ(info_.Padding(), "0");
    EXPECT_EQ(info_.PrivateBit(), 0);
    EXPECT_EQ(info_.FrameLength(), 417);
    EXPECT_EQ(info_.TotalFrames(), 10);
    EXPECT_EQ(info_.ValidHeader(), "True");
    // 4170 bytes: 0.260625 s and 0.05, cut behind two digits.
    EXPECT_FLOAT_EQ(info_.PlayTime(), 0.31F);
}

TEST_F(ClsId3, theFirst50000BytesAreSearched) {
    EXPECT_EQ(open(std::string(49997, 'x') + sound_), "");
    EXPECT_EQ(open(std::string(49998, 'x') + sound_), "-2");
    EXPECT_EQ(open(std::string(60000, 'x') + sound_), "-2");
    EXPECT_EQ(open(""), "-2");
    EXPECT_EQ(open("\xFF\xFB"), "-2");
}

TEST_F(ClsId3, aHeadThatNoOtherFollowsIsSkipped) {
    EXPECT_EQ(open("\xFF\xFB\xA0\x44" + std::string(100, 'x') + sound_), "");
    EXPECT_EQ(info_.bitrate(), "128");
    EXPECT_EQ(open("\xFF\xFB\xA0\x44" + std::string(2000, 'x')), "-2");
    EXPECT_EQ(info_.ValidHeader(), "True"); // what was last taken for a head
    EXPECT_EQ(info_.bitrate(), "160");
    EXPECT_EQ(info_.TotalFrames(), static_cast<int>((104 + sound_.size()) / 417)); // as it was
}

TEST_F(ClsId3, onlyTwoKindsOfHeadsAreFound) {
    std::string other = sound_;
    for (const char second : {'\xFA', '\xFB'}) {
        for (std::size_t at = 1; at < other.size(); at += kFrameBytes) {
            other[at] = second;
        }
        EXPECT_EQ(open(other), "");
        EXPECT_EQ(info_.CRCPresent(), second == '\xFA');
    }
    for (const char second : {'\xF3', '\xFD', '\xFF', '\xE3'}) {
        for (std::size_t at = 1; at < other.size(); at += kFrameBytes) {
            other[at] = second;
        }
        EXPECT_EQ(open(other), "-2") << static_cast<int>(second);
    }
}

TEST_F(ClsId3, anInvalidHeadLeavesTheSyncByteInForce) {
    // FF FB with a bad rate, then at once FB: the byte before it is taken for the start of a head.
    const std::string tricky = "\xFF\xFB\xFB\x90\x44";
    std::string bytes = tricky + std::string(413, 'x') + sound_;
    // The head "FB FB 90 44" stands at the second byte; 417 bytes on is a frame.
    bytes = tricky + std::string(1 + 417 - tricky.size(), 'x') + sound_;
    EXPECT_EQ(open(bytes), "");
    EXPECT_EQ(info_.TotalFrames(), static_cast<int>(bytes.size() / 417));
}

TEST_F(ClsId3, withoutAValidHeaderThereIsNoPlayTime) {
    EXPECT_EQ(info_.PlayTime(), -1);
    EXPECT_EQ(info_.ValidHeader(), "False");
    open(sound_);
    const float before = info_.PlayTime();
    EXPECT_EQ(open("\xFF\xFB\xF0\x44" + std::string(600, 'x')), "-2");
    EXPECT_EQ(info_.ValidHeader(), "False");
    EXPECT_EQ(info_.PlayTime(), -1);
    EXPECT_GT(before, 0);
}

TEST_F(ClsId3, readsTheTagWithTheTrackInsideTheComment) {
    read(sound_ + infoTag());
    EXPECT_TRUE(info_.TagPresent());
    EXPECT_EQ(info_.Title(), "Title");
    EXPECT_EQ(info_.Artist(), "Artist");
    EXPECT_EQ(info_.Album(), "Album");
    EXPECT_EQ(info_.Year(), "1999");
    EXPECT_EQ(info_.Comment(), field("Comment", 28) + "\0\x07"s);
    EXPECT_EQ(info_.genre(), "Rock");
    read(sound_ + infoTag('\x94'));
    EXPECT_EQ(info_.genre(), "Unknown");
    read(sound_);
    EXPECT_FALSE(info_.TagPresent());
    EXPECT_EQ(info_.Title(), "");
}

TEST_F(ClsId3, genresBothWays) {
    EXPECT_EQ(clsID3::GetGenre("0"), "Blues");
    EXPECT_EQ(clsID3::GetGenre("147"), "Synth Pop");
    EXPECT_EQ(clsID3::GetGenre("148"), "Unknown");
    EXPECT_EQ(clsID3::GetGenre("123"), "A Capella");
    EXPECT_EQ(clsID3::GetGenre("Hip-Hop"), "7");
    EXPECT_EQ(clsID3::GetGenre("hip-hop"), "255");
    EXPECT_EQ(clsID3::GetGenre("none of them"), "255");
    EXPECT_EQ(clsID3::GetGenre(""), "255");
    EXPECT_EQ(errorOf([] { static_cast<void>(clsID3::GetGenre("-1")); }), 9);
    const std::set<std::string_view> names(infoGenres().begin(), infoGenres().end());
    EXPECT_EQ(names.size(), 148U);
    for (std::size_t number = 0; number < names.size(); ++number) {
        EXPECT_EQ(clsID3::GetGenre(infoGenres().at(number)), std::to_string(number));
    }
}

TEST_F(ClsId3, settersWriteAtOnceAndForgetTheTag) {
    read(sound_ + infoTag());
    info_.Title("New");
    const std::string once = "TAG" + field("New", 30) + infoTag().substr(33);
    EXPECT_EQ(file(), sound_ + once);
    EXPECT_FALSE(info_.TagPresent());
    EXPECT_EQ(info_.Title(), "");
    info_.Artist("Second"); // appends
    const std::string twice = once.substr(0, 33) + field("Second", 30) + once.substr(63);
    EXPECT_EQ(file(), sound_ + once + twice);
    EXPECT_EQ(info_.ReadMP3Info(), std::nullopt);
    info_.Album(std::string(31, 'a'));
    EXPECT_EQ(file(),
              sound_ + once + twice.substr(0, 63) + std::string(30, 'a') + twice.substr(93));
    read(sound_ + infoTag());
    info_.genre("Punk");
    EXPECT_EQ(file().back(), 43);
    read(sound_ + infoTag());
    info_.genre("unheard of");
    EXPECT_EQ(file().back(), '\xFF');
    read(sound_ + infoTag());
    EXPECT_EQ(errorOf([this] { info_.genre("43"); }), 13);
    EXPECT_EQ(file(), sound_ + infoTag());
}

TEST_F(ClsId3, soundIsNeverTakenForATag) {
    read(sound_ + infoTag());
    info_.FullName(folder_.write("other.mp3", sound_));
    info_.Title("New");
    EXPECT_EQ(folder_.read("other.mp3").substr(0, sound_.size()), sound_);
    EXPECT_EQ(folder_.read("other.mp3").size(), sound_.size() + 128);
}

TEST_F(ClsId3, aMissingFileIsNotMade) {
    info_.FullName(folder_ / "none.mp3");
    EXPECT_EQ(info_.ReadMP3Info(), -1);
    EXPECT_EQ(info_.RemoveTag(), -1);
    EXPECT_EQ(info_.FileAttributes(), "-1");
    info_.FileAttributes("R");
    info_.Title("New");
    EXPECT_EQ(errorOf([this] { info_.ReadHeader(); }), 53);
    EXPECT_FALSE(fs::exists(folder_ / "none.mp3"));
}

TEST_F(ClsId3, aFileShorterThanATagIsAnError) {
    info_.FullName(folder_.write("song.mp3", std::string(127, 'x')));
    EXPECT_EQ(errorOf([this] { info_.ReadMP3Info(); }), 63);
    EXPECT_EQ(errorOf([this] { static_cast<void>(info_.RemoveTag()); }), 63);
    EXPECT_EQ(file(), std::string(127, 'x'));
    read(infoTag());
    EXPECT_TRUE(info_.TagPresent());
}

TEST_F(ClsId3, removingCutsTheTagOff) {
    read(sound_ + infoTag());
    fs::permissions(folder_ / "song.mp3", fs::perms(0444));
    EXPECT_EQ(info_.RemoveTag(), 1);
    EXPECT_EQ(file(), sound_);
    EXPECT_EQ(fs::status(folder_ / "song.mp3").permissions(), fs::perms(0444));
    EXPECT_EQ(info_.RemoveTag(), 0);
    EXPECT_EQ(file(), sound_);
    EXPECT_EQ(fs::status(folder_ / "song.mp3").permissions(), fs::perms(0644)); // stays writable
}

TEST_F(ClsId3, attributesAreWriteBitsAndTheName) {
    info_.FullName(folder_.write("song.mp3", sound_));
    const auto mode = [this] { return fs::status(info_.FullName()).permissions(); };
    fs::permissions(info_.FullName(), fs::perms(0664));
    EXPECT_EQ(info_.FileAttributes(), "Normal");
    info_.FileAttributes("SAr");
    EXPECT_EQ(info_.FileAttributes(), "R");
    EXPECT_EQ(mode(), fs::perms(0444));
    info_.FileAttributes("HSA");
    EXPECT_EQ(info_.FileAttributes(), "Normal");
    EXPECT_EQ(mode(), fs::perms(0644));
    info_.FileAttributes("R");
    info_.FileAttributes("normal"); // though there is an r in it
    EXPECT_EQ(mode(), fs::perms(0644));
    info_.FullName(folder_.write(".song.mp3", sound_));
    EXPECT_EQ(info_.FileAttributes(), "H");
    info_.FileAttributes("R");
    EXPECT_EQ(info_.FileAttributes(), "RH");
}

TEST_F(ClsId3, aReadOnlyFileIsWrittenAndReadOnlyAgain) {
    read(sound_ + infoTag());
    fs::permissions(folder_ / "song.mp3", fs::perms(0444));
    info_.Title("New");
    EXPECT_EQ(file().substr(sound_.size(), 6), "TAGNew");
    EXPECT_EQ(fs::status(folder_ / "song.mp3").permissions(), fs::perms(0444));
}

} // namespace
} // namespace tovik::tags
