// SPDX-License-Identifier: GPL-3.0-or-later
// Songs as `SongSaver` saves them, by the object that a stream has.
#include "radio/modNetRadio.h"

#include "radio/SongComments.h"
#include "radio/Sounds.h"
#include "support/host/FullDisk.h"
#include "support/host/TemporaryFolder.h"
#include "tags/FreshTags.h"

#include <algorithm>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

namespace tovik::radio {
namespace {

using test::adtsFrame;
using test::mediaBytes;
using test::mpegFrame;
using test::spanOf;
using test::titledOgg;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::StartsWith;

class SongSaverTest : public testing::Test {
protected:
    SongSaverTest() {
        base::Comfort& comfort = ways_.comfort;
        comfort.readsTitlesWhole = comfort.savesPlainSongs = comfort.savesAnyFormat = true;
        comfort.numbersSavedSongs = comfort.savesUntitled = true;
        ways_.folder = folder_ / "songs";
        ways_.station = "Jazz: FM";
        begin();
    }

    /// With the ways as they are now.
    void begin() {
        radio_.setWays(ways_);
        radio_.setStreamRecording(true);
    }

    static void come(modNetRadio& radio, std::string_view stream, std::size_t block = 333) {
        for (std::size_t at = 0; at < stream.size(); at += block) {
            radio.download(spanOf(stream.substr(at, block)));
        }
    }

    void come(std::string_view stream) { come(radio_, stream); }

    void title(const std::string& title) { radio_.DoMeta("StreamTitle='" + title + "';"); }

    static std::string frames(char first, char last) {
        std::string sound;
        for (char sign = first; sign <= last; ++sign) {
            sound += mpegFrame(sign);
        }
        return sound;
    }

    [[nodiscard]] std::string song(const std::string& name) const {
        return folder_.read("songs/" + name);
    }

    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> found;
        std::error_code none;
        for (const auto& entry : std::filesystem::directory_iterator(folder_ / "songs", none)) {
            found.push_back(entry.path().filename().string());
        }
        std::ranges::sort(found);
        return found;
    }

    test::TemporaryFolder folder_;
    SavingWays ways_;
    modNetRadio radio_{folder_.path()};
};

TEST_F(SongSaverTest, songsBeginAndEndWithWholeFramesWhereverTheTitleComes) {
    const std::string sound = frames('a', 'z');
    constexpr std::size_t kBoundary = 12 + 417 * 6; // one begins there
    for (const std::size_t cut : {kBoundary, kBoundary + 1, kBoundary + 416}) {
        modNetRadio radio(folder_.path());
        radio.setWays(ways_);
        radio.setStreamRecording(true);
        const std::string number = std::to_string(cut);
        radio.DoMeta("StreamTitle='One " + number + "';");
        come(radio, "half a frame" + sound.substr(0, cut - 12));
        radio.DoMeta("StreamTitle='Two " + number + "';");
        come(radio, sound.substr(cut - 12));
        radio.download({});
        const std::string one = song("One " + number + ".mp3");
        const std::string two = song("Two " + number + ".mp3");
        EXPECT_TRUE(one + two == sound) << cut;
        EXPECT_EQ(one.size(), 417U * (cut == kBoundary ? 6 : 7)) << cut;
    }
}

TEST_F(SongSaverTest, theSoundOfARealFileIsAllThere) {
    const std::string sound = mediaBytes("mp3_vbr_no_xing.mp3");
    ASSERT_GT(sound.size(), 20'000U);
    title("One");
    come(std::string_view(sound).substr(0, 10'000));
    title("Two");
    come(std::string_view(sound).substr(10'000));
    radio_.download({});
    EXPECT_TRUE(song("One.mp3") + song("Two.mp3") == sound);
    EXPECT_THAT(song("Two.mp3"), StartsWith("\xFF\xFB"));
}

TEST_F(SongSaverTest, aTitleIsWholeAndItsNameClean) {
    title("AC; DC/don't &amp; \x01stop..");
    come(frames('a', 'e'));
    EXPECT_THAT(names(), ElementsAre("AC; DC-don't & stop.mp3"));
}

TEST_F(SongSaverTest, aTitleThatIsRepeatedGoesOnInItsFile) {
    title("One");
    come(frames('a', 'e'));
    title("One");
    come(frames('f', 'j'));
    radio_.download({});
    EXPECT_THAT(names(), ElementsAre("One.mp3"));
    EXPECT_EQ(song("One.mp3"), frames('a', 'j'));
}

TEST_F(SongSaverTest, aNameThatIsThereGetsANumber) {
    title("One");
    come(frames('a', 'e'));
    title("Two");
    come(frames('f', 'j'));
    title("One");
    come(frames('k', 'o'));
    radio_.download({});
    EXPECT_THAT(names(), ElementsAre("One (2).mp3", "One.mp3", "Two.mp3"));
    EXPECT_EQ(song("One.mp3").substr(0, 5), mpegFrame('a').substr(0, 5));
    EXPECT_EQ(song("One (2).mp3").back(), 'o');
}

TEST_F(SongSaverTest, withoutNumbersTheFileIsReplaced) {
    ways_.comfort.numbersSavedSongs = false;
    begin();
    folder_.write("songs/One.mp3", std::string(9000, 'x'));
    title("One");
    come(frames('a', 'e'));
    radio_.download({});
    EXPECT_EQ(song("One.mp3"), frames('a', 'e'));
}

TEST_F(SongSaverTest, theButtonEndsAFileAndBeginsANewOne) {
    title("One");
    come(frames('a', 'e'));
    radio_.setStreamRecording(false);
    come(frames('f', 'j'));
    radio_.setStreamRecording(true);
    come(frames('k', 'o'));
    radio_.download({});
    EXPECT_THAT(song("One.mp3"), EndsWith("d"));
    EXPECT_EQ(song("One (2).mp3"), mpegFrame('j') + frames('k', 'o'));
}

TEST_F(SongSaverTest, tagsStandRoundTheSoundAtEveryMoment) {
    ways_.comfort.tagsSavedSongs = true;
    begin();
    const tags::FreshTags expected{.title = "Song", .artist = "Ann", .album = "Jazz: FM"};
    const std::string head = tags::freshHead(expected);
    const std::string tail = tags::freshTail(expected);
    title("Ann - Song");
    std::size_t before = 0;
    for (char sign = 'a'; sign < 'i'; ++sign) {
        come(mpegFrame(sign));
        if (names().empty()) {
            continue;
        }
        const std::string now = song("Ann - Song.mp3");
        EXPECT_THAT(now, StartsWith(head + "\xFF\xFB"));
        EXPECT_THAT(now, EndsWith(tail));
        EXPECT_EQ((now.size() - head.size() - tail.size()) % 417, 0U);
        EXPECT_GE(now.size(), before);
        before = now.size();
    }
    radio_.download({});
    EXPECT_EQ(song("Ann - Song.mp3"), head + frames('a', 'h') + tail);
}

TEST_F(SongSaverTest, aStreamThatCameBackGoesOnInTheFileOfItsSong) {
    ways_.comfort.tagsSavedSongs = true;
    begin();
    title("One");
    come(frames('a', 'e'));
    come("half");
    radio_.download({});
    modNetRadio second(radio_);
    modNetRadio third(second); // it was lost before anything came
    third.DoMeta("StreamTitle='One';");
    come(third, frames('f', 'j'));
    third.download({});
    const tags::FreshTags expected{.title = "One", .album = "Jazz: FM"};
    EXPECT_THAT(names(), ElementsAre("One.mp3"));
    EXPECT_EQ(song("One.mp3"), tags::freshHead(expected) + frames('a', 'e') + frames('f', 'j') +
                                   tags::freshTail(expected));
    modNetRadio fourth(third);
    fourth.DoMeta("StreamTitle='Two';");
    come(fourth, frames('a', 'e'));
    EXPECT_THAT(names(), ElementsAre("One.mp3", "Two.mp3"));
}

TEST_F(SongSaverTest, aSongThatWasBegunWithoutTagsLosesNoSound) {
    title("One");
    come(frames('a', 'e'));
    radio_.download({});
    ways_.comfort.tagsSavedSongs = true;
    modNetRadio second(radio_);
    second.setWays(ways_);
    second.DoMeta("StreamTitle='One';");
    come(second, frames('f', 'j'));
    second.download({});
    const std::string saved = song("One.mp3");
    EXPECT_THAT(saved, StartsWith(frames('a', 'j')));
    EXPECT_EQ(saved.size(), 417U * 10 + 128);
}

TEST_F(SongSaverTest, whatWasEndedDoesNotGoOnInAnotherStream) {
    title("One");
    come(frames('a', 'e'));
    radio_.setStreamRecording(false);
    modNetRadio next(radio_);
    next.setStreamRecording(true);
    next.DoMeta("StreamTitle='One';");
    come(next, frames('f', 'j'));
    EXPECT_THAT(names(), ElementsAre("One (2).mp3", "One.mp3"));
}

TEST_F(SongSaverTest, aStationWithoutTitlesHasItsName) {
    come(frames('a', 'e'));
    title("");
    come(frames('f', 'j'));
    EXPECT_THAT(names(), ElementsAre("Jazz- FM.mp3"));
}

TEST_F(SongSaverTest, withoutThatNothingIsSavedBeforeATitle) {
    ways_.comfort.savesUntitled = false;
    begin();
    come(frames('a', 'e'));
    EXPECT_THAT(names(), IsEmpty());
    title("One");
    come(frames('f', 'j'));
    EXPECT_THAT(names(), ElementsAre("One.mp3"));
}

TEST_F(SongSaverTest, aacIsSavedUnderItsEnding) {
    title("One");
    const std::string sound = adtsFrame('a', 200) + adtsFrame('b', 333) + adtsFrame('c');
    come(sound);
    radio_.download({});
    EXPECT_EQ(song("One.aac"), sound);
}

TEST_F(SongSaverTest, songsOfOggAreItsStreams) {
    for (const std::string kind : {"link_", "flac_link_"}) {
        modNetRadio radio(folder_.path());
        ways_.folder = folder_ / "songs";
        ways_.station = kind;
        radio.setWays(ways_);
        radio.setStreamRecording(true);
        const std::string links[] = {mediaBytes(kind + "1.ogg"), mediaBytes(kind + "2.ogg"),
                                     mediaBytes(kind + "3.ogg")};
        for (const std::string& link : links) {
            ASSERT_FALSE(link.empty());
            come(radio, link, 1000);
        }
        radio.download({});
        EXPECT_TRUE(song(kind + ".ogg") == links[0]) << kind;
        EXPECT_TRUE(song(kind + " (2).ogg") == links[1]) << kind;
        EXPECT_TRUE(song(kind + " (3).ogg") == links[2]) << kind;
    }
}

TEST_F(SongSaverTest, theTitleInAHeadIsRightWhateverIsToldBeside) {
    const std::string file = titledOgg("Ann", "Song");
    come(std::string_view(file).substr(0, file.size() / 2));
    title("the song before, which is heard now");
    come(std::string_view(file).substr(file.size() / 2));
    radio_.download({});
    EXPECT_THAT(names(), ElementsAre("Ann - Song.ogg"));
    EXPECT_TRUE(song("Ann - Song.ogg") == file);
}

TEST_F(SongSaverTest, oggThatIsSavedFromItsMiddleBeginsWithItsHead) {
    const std::string file = mediaBytes("ogg_44100.ogg");
    radio_.setStreamRecording(false);
    title("One");
    const std::size_t half = file.size() / 2;
    come(std::string_view(file).substr(0, half));
    radio_.setStreamRecording(true);
    come(std::string_view(file).substr(half));
    radio_.download({});
    const std::string saved = song("One.ogg");
    std::size_t same = 0;
    while (same < saved.size() && saved[same] == file[same]) {
        ++same;
    }
    EXPECT_GT(same, 1000U) << "the headers";
    EXPECT_LT(saved.size(), file.size());
    EXPECT_THAT(file, EndsWith(saved.substr(same + 27)));
}

TEST_F(SongSaverTest, flacGetsAHeadWithItsTitle) {
    const std::string file = mediaBytes("flac_16_44100.flac");
    title("Ann - Song");
    come(file);
    radio_.download({});
    const std::string saved = song("Ann - Song.flac");
    const std::string comments = commentsOf("Ann", "Song");
    EXPECT_EQ(saved.substr(0, 4), "fLaC");
    EXPECT_EQ(saved.substr(8, 10), file.substr(8, 10)) << "the form of the sound";
    EXPECT_EQ(saved.substr(46, comments.size()), comments);
    const std::string sound = saved.substr(46 + comments.size());
    EXPECT_GT(sound.size(), file.size() / 2);
    EXPECT_TRUE(file.ends_with(sound));
}

TEST_F(SongSaverTest, eachMemberDecidesForItsKind) {
    ways_.comfort.savesPlainSongs = false;
    begin();
    title("One");
    come(frames('a', 'e'));
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_THAT(folder_.read("One.mp3"), StartsWith("\xFF\xFB\x90" + std::string(1, '\0')))
        << "as it comes, where it always went";
    ways_.comfort.savesPlainSongs = true;
    ways_.comfort.savesAnyFormat = false;
    modNetRadio other(folder_.path());
    other.setWays(ways_);
    other.setStreamRecording(true);
    other.DoMeta("StreamTitle='Two';");
    come(other, adtsFrame('a') + adtsFrame('b') + adtsFrame('c'));
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(SongSaverTest, whatIsNoSoundEndsTheSavingAndIsTold) {
    come(std::string(300'000, 'x'));
    const auto failure = radio_.takeFailure();
    ASSERT_TRUE(failure);
    EXPECT_TRUE(failure->ends);
    EXPECT_EQ(failure->why, std::errc::not_supported);
    EXPECT_FALSE(radio_.StreamRecording());
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(SongSaverTest, aFolderThatCannotBeMadeIsToldForEachSong) {
    folder_.write("songs", "a file");
    title("One");
    come(frames('a', 'j'));
    EXPECT_TRUE(radio_.takeFailure());
    come(frames('k', 'm'));
    EXPECT_FALSE(radio_.takeFailure()) << "once";
    title("Two");
    come(frames('n', 'r'));
    const auto failure = radio_.takeFailure();
    ASSERT_TRUE(failure);
    EXPECT_FALSE(failure->ends);
    EXPECT_TRUE(radio_.StreamRecording());
}

TEST_F(SongSaverTest, aFullDiskEndsTheSavingAndLeavesWholeFrames) {
    title("One");
    come(frames('a', 'e'));
    {
        const test::FullDisk full(417 * 6 + 100);
        come(frames('f', 'o'));
    }
    const auto failure = radio_.takeFailure();
    ASSERT_TRUE(failure);
    EXPECT_TRUE(failure->ends);
    EXPECT_EQ(failure->path, folder_ / "songs/One.mp3");
    EXPECT_FALSE(radio_.StreamRecording());
    EXPECT_EQ(song("One.mp3").size() % 417, 0U);
}

TEST_F(SongSaverTest, aTitleWithEachFrameMakesFewFiles) {
    const std::string sound = frames('a', 'z') + frames('a', 'z') + frames('a', 'z');
    for (std::size_t at = 0; at < sound.size(); at += 417) {
        title(std::to_string(at));
        come(sound.substr(at, 417));
    }
    EXPECT_GE(names().size(), 32U);
    EXPECT_LE(names().size(), 64U);
}

TEST_F(SongSaverTest, noTitleLeadsOutOfTheFolder) {
    for (const std::string bad : {"../x", "..", "/etc/x", "a/../../b", "a\\b"}) {
        title(bad);
        come(frames('a', 'e'));
    }
    EXPECT_EQ(names().size(), 5U);
    std::filesystem::remove_all(folder_ / "songs");
    EXPECT_TRUE(std::filesystem::is_empty(folder_.path()));
}

} // namespace
} // namespace tovik::radio
