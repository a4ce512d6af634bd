// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/cMP3ID3v2.h"

#include "base/RuntimeError.h"
#include "Samples.h"
#include "support/host/RecordingDialogs.h"
#include "support/host/TemporaryFolder.h"
#include "tags/BigEndian.h"

#include <gtest/gtest.h>

namespace tovik::tags {
namespace {

using namespace samples;

class Id3v2Read : public testing::Test {
protected:
    void load(const std::string& bytes) { tag_.MP3File(folder_.write("song.mp3", bytes)); }

    test::TemporaryFolder folder_;
    test::RecordingDialogs dialogs_;
    TagWarning warning_{dialogs_};
    cMP3ID3v2 tag_{warning_};
};

TEST(BigEndian, carriesTheSign) {
    EXPECT_EQ(FromBigEndian("\x01\x02\x03\x04"), 0x01020304);
    EXPECT_EQ(FromBigEndian("\xFF\xFF\xFF\xFE"), -2);
    EXPECT_EQ(FromBigEndian("\x80\0\0\0"s), INT32_MIN);
    std::string bytes = "0123456789";
    PutBigEndian(bytes, 2, -2);
    EXPECT_EQ(bytes, "01\xFF\xFF\xFF\xFE"
                     "6789");
    EXPECT_EQ(fromSevenBits("\x01\x02\x03\x04"), (1 << 21) + (2 << 14) + (3 << 7) + 4);
    EXPECT_EQ(fromSevenBits("\x01\x02\x83\x04"), -1);
    EXPECT_EQ(fromSevenBits("\x01\x02\x03"), -1);
}

TEST_F(Id3v2Read, isEmptyBeforeAnyReadAndWithoutATag) {
    const auto expectEmpty = [this] {
        EXPECT_FALSE(tag_.HasID3v2Tag());
        EXPECT_EQ(tag_.ID3v2TagVersion(), 0);
        EXPECT_EQ(tag_.TagVersion(), 0);
        EXPECT_EQ(tag_.FrameCount(), 0);
        EXPECT_EQ(tag_.genre(), 255);
        EXPECT_EQ(tag_.Title() + tag_.Comment() + tag_.OtherGenreName(), "");
    };
    expectEmpty();
    load(tag(textFrame("TIT2", "Title")) + sound(3));
    load(sound(3));
    expectEmpty();
    tag_.MP3File(folder_ / "none.mp3");
    expectEmpty();
    load("");
    expectEmpty();
    EXPECT_TRUE(dialogs_.boxes.empty());
}

TEST_F(Id3v2Read, readsEachFieldFromItsFrame) {
    load(tag(textFrame("WOAR", "1") + textFrame("WCOM", "2") + textFrame("WOAF", "3") +
             textFrame("TCOP", "4") + textFrame("TCOM", "5") + textFrame("TOPE", "6") +
             frame("WXXX", "\0desc\0"
                           "7"s) +
             textFrame("PCNT", "8") + textFrame("TENC", "9") + textFrame("TIT2", "10") +
             textFrame("TPE1", "11") + textFrame("TALB", "12") + textFrame("TYER", "13") +
             frame("COMM", "\0engd\0"
                           "14"s) +
             frame("USLT", "\0eng\0"
                           "15"s) +
             textFrame("TRCK", "16")) +
         sound(3));
    EXPECT_EQ(tag_.ArtistURL(), "1");
    EXPECT_EQ(tag_.BuyURL(), "2");
    EXPECT_EQ(tag_.AudioURL(), "3");
    EXPECT_EQ(tag_.Copyright(), "4");
    EXPECT_EQ(tag_.Composer(), "5");
    EXPECT_EQ(tag_.OriginalArtist(), "6");
    EXPECT_EQ(tag_.LinkTo(), "7");
    EXPECT_EQ(tag_.PlayCounter(), "8");
    EXPECT_EQ(tag_.EncodedBy(), "9");
    EXPECT_EQ(tag_.Title(), "10");
    EXPECT_EQ(tag_.Artist(), "11");
    EXPECT_EQ(tag_.Album(), "12");
    EXPECT_EQ(tag_.Year(), "13");
    EXPECT_EQ(tag_.Comment(), "14");
    EXPECT_EQ(tag_.Lyrics(), "15");
    EXPECT_EQ(tag_.track(), "16");
    EXPECT_EQ(tag_.FrameCount(), 16);
    EXPECT_EQ(tag_.Frame(1), "WOAR");
    EXPECT_EQ(tag_.Frame(16), "TRCK");
    EXPECT_THROW(static_cast<void>(tag_.Frame(17)), base::RuntimeError);
    EXPECT_THROW(static_cast<void>(tag_.Frame(0)), base::RuntimeError);
}

TEST_F(Id3v2Read, aTextIsWhatStandsBehindTheLastZeroByte) {
    load(tag(frame("TIT2", "no encoding byte") + frame("TPE1", "\0Artist\0"s) +
             frame("TALB", "\x01\xFF\xFE"
                           "A\0l\0x"s) +
             frame("TENC", "") +
             frame("TYER", "\x03"
                           "1999")));
    EXPECT_EQ(tag_.Title(), "no encoding byte");
    EXPECT_EQ(tag_.Artist(), "");
    EXPECT_EQ(tag_.Album(), "x");
    EXPECT_EQ(tag_.EncodedBy(), "");
    EXPECT_EQ(tag_.Year(), "\x03"
                           "1999");
    EXPECT_EQ(tag_.FrameCount(), 5);
}

TEST_F(Id3v2Read, theLastInstanceWinsButForComments) {
    load(tag(textFrame("TIT2", "one") + textFrame("COMM", "first") + textFrame("TIT2", "two") +
             textFrame("COMM", "second")));
    EXPECT_EQ(tag_.Title(), "two");
    EXPECT_EQ(tag_.Comment(), "first\0\r\nsecond"s);
    EXPECT_EQ(tag_.FrameCount(), 2);
    EXPECT_EQ(tag_.TagsInFrame("TIT2"), 2);
    EXPECT_EQ(tag_.TagText("TIT2", 1), "one");
    EXPECT_EQ(tag_.TagText("TIT2", 2), "two");
    EXPECT_EQ(tag_.TagText("TIT2", 3), "");
    EXPECT_EQ(tag_.TagsInFrame("TALB"), 0);
}

TEST_F(Id3v2Read, theLastDigitOfAGenreIsCutOff) {
    struct Row {
        std::string text;
        int genre;
        std::string name;
    };

    const std::array rows{
        Row{"(17)", 1, "Classic Rock"},
        Row{"(255)", 25, "Euro - Techno"},
        Row{"(1234)", 123, ""},
        Row{"(9)", 255, "(9)"},
        Row{"()", 255, "()"},
        Row{")(", 255, ")("},
        Row{"(abc)", 255, "(abc)"},
        Row{"(99999)", 255, "(99999)"},
        Row{"(-12)", 255, "(-12)"},
        Row{"Rock", 255, "Rock"},
        Row{"(17)Rock", 1, "Rock"},
        Row{"(17)R", 1, "Classic Rock"}, // a name of one letter is not taken
        Row{"x(17)Rock", 1, "Rock"},
    };
    for (const Row& row : rows) {
        load(tag(textFrame("TCON", row.text)));
        EXPECT_EQ(tag_.genre(), row.genre) << row.text;
        EXPECT_EQ(tag_.OtherGenreName(), row.name) << row.text;
    }
}

TEST_F(Id3v2Read, onlyVersions3And4GiveFrames) {
    for (const char version : {'\0', '\1', '\2', '\5', '\177'}) {
        load(tag(textFrame("TIT2", "Title"), version) + sound(2));
        EXPECT_TRUE(tag_.HasID3v2Tag());
        EXPECT_EQ(tag_.ID3v2TagVersion(), version);
        EXPECT_EQ(tag_.FrameCount(), 0);
    }
    for (const char version : {'\3', '\4'}) {
        load(tag(textFrame("TIT2", "Title"), version) + sound(2));
        EXPECT_EQ(tag_.Title(), "Title");
        EXPECT_EQ(tag_.TagVersion(), version);
    }
}

TEST_F(Id3v2Read, theMarkIsSearched) {
    const std::string found = tag(textFrame("TIT2", "Title")) + "12345678";
    const std::string quiet(4096, 'q');
    for (const std::size_t before : {1U, 4092U, 4093U, 4094U, 4095U, 4096U, 8189U}) {
        // The end that the head tells counts from the start of the file: one frame is read.
        load(std::string(before, 'x') + found + quiet);
        EXPECT_TRUE(tag_.HasID3v2Tag()) << before;
        EXPECT_EQ(tag_.Title(), "Title") << before;
    }
}

TEST_F(Id3v2Read, theSearchEndsAtSound) {
    load(std::string(5000, 'x') + "\xFF\xFB" + std::string(5000, 'x') +
         tag(textFrame("TIT2", "T")));
    EXPECT_FALSE(tag_.HasID3v2Tag());
    // In the same block the mark is seen, also behind sound.
    load("\xFF\xFB" + std::string(100, 'x') + tag(textFrame("TIT2", "T")));
    EXPECT_TRUE(tag_.HasID3v2Tag());
    // Other sound does not end it.
    load("\xFF\xFA" + std::string(5000, 'x') + tag(textFrame("TIT2", "T")));
    EXPECT_TRUE(tag_.HasID3v2Tag());
}

TEST_F(Id3v2Read, theLastByteIsNotLookedAt) {
    load("xxID3");
    EXPECT_FALSE(tag_.HasID3v2Tag());
    load("xxID3x");
    EXPECT_TRUE(tag_.HasID3v2Tag());
    for (const std::string& bytes : {"I"s, "ID3"s, "ID3\x03"s, "ID3\x03\0\0\0\0"s}) {
        load(bytes);
        EXPECT_EQ(tag_.FrameCount(), 0);
    }
}

TEST_F(Id3v2Read, fourZeroBytesEndTheFrames) {
    const std::string frames =
        textFrame("TIT2", "Title") + "\0\0\0\0"s + textFrame("TALB", "Album");
    load(head(bigEndian(5000)) + frames);
    EXPECT_EQ(tag_.Title(), "Title");
    EXPECT_EQ(tag_.Album(), "");
}

TEST_F(Id3v2Read, theSizeEndsTheFrames) {
    const std::string one = textFrame("TIT2", "Title");
    const std::string two = textFrame("TALB", "Album");
    const auto end = static_cast<std::uint32_t>(10 + one.size());
    // The place behind the first frame counts from 1.
    load(head(bigEndian(end)) + one + two);
    EXPECT_EQ(tag_.FrameCount(), 1);
    load(head(bigEndian(end + 1)) + one + two);
    EXPECT_EQ(tag_.FrameCount(), 2);
    for (const std::uint32_t size : {0U, 1U, 0x80000000U, 0xFFFFFFFFU}) {
        load(head(bigEndian(size)) + one + two);
        EXPECT_EQ(tag_.FrameCount(), 1);
    }
}

TEST_F(Id3v2Read, aFrameThatLeavesTheFileEndsTheParse) {
    const std::string one = textFrame("TIT2", "Title");
    for (const std::uint32_t size : {7U, 1000U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        load(head(bigEndian(5000)) + one + "TALB" + bigEndian(size) + "\0\0"s + "\0Album"s);
        EXPECT_EQ(tag_.Title(), "Title") << size;
        EXPECT_EQ(tag_.FrameCount(), 1) << size;
    }
    load(head(bigEndian(5000)) + one + "TALB" + bigEndian(6) + "\0\0"s + "\0Album"s);
    EXPECT_EQ(tag_.Album(), "Album");
    load(head(bigEndian(5000)) + one + "TALB\0\0"s); // not even a head
    EXPECT_EQ(tag_.FrameCount(), 1);
}

TEST_F(Id3v2Read, unknownFramesAreKept) {
    load(tag(frame("APIC", "\0image/png\0\3\0\x89PNG"s) + textFrame("XYZ1", "mine")));
    EXPECT_EQ(tag_.FrameCount(), 2);
    EXPECT_EQ(tag_.TagText("APIC", 1), "\x89PNG");
    EXPECT_EQ(tag_.TagText("XYZ1", 1), "mine");
}

TEST_F(Id3v2Read, instancesAreAddedAndRemoved) {
    tag_.AddTag("TXXX", "a");
    tag_.AddTag("TALB", "x");
    tag_.AddTag("TXXX", "b");
    tag_.AddTag("TXXX", "c");
    EXPECT_EQ(tag_.Album(), ""); // no field is filled
    tag_.RemoveTag("TXXX", 1);
    EXPECT_EQ(tag_.Frame(1), "TXXX"); // keeps its place
    EXPECT_EQ(tag_.TagsInFrame("TXXX"), 2);
    EXPECT_EQ(tag_.TagText("TXXX", 1), "b");
    EXPECT_EQ(tag_.TagText("TXXX", 2), "c");
    tag_.RemoveTag("TXXX", 3);
    tag_.RemoveTag("TXXX", 0);
    EXPECT_EQ(tag_.TagsInFrame("TXXX"), 2);
    tag_.RemoveTag("TXXX", 2);
    tag_.RemoveTag("TXXX", 1);
    EXPECT_EQ(tag_.TagsInFrame("TXXX"), 0);
    EXPECT_EQ(tag_.FrameCount(), 1);
    tag_.RemoveFrame("TALB");
    EXPECT_EQ(tag_.FrameCount(), 0);
    EXPECT_TRUE(dialogs_.boxes.empty());
}

TEST_F(Id3v2Read, removingWhatIsNotThereWarnsWhileTheEditorSaves) {
    tag_.RemoveFrame("TALB");
    EXPECT_TRUE(dialogs_.boxes.empty());
    warning_.TagSaving = true;
    tag_.RemoveFrame("TALB");
    ASSERT_EQ(dialogs_.boxes.size(), 1U);
    EXPECT_EQ(dialogs_.boxes[0].text, "Can't modify tags , file is read only");
    EXPECT_TRUE(warning_.TagWarned);
    tag_.RemoveTag("TALB", 1);
    EXPECT_EQ(dialogs_.boxes.size(), 1U);
    warning_.TagWarned = false;
    tag_.RemoveTag("TALB", 1);
    EXPECT_EQ(dialogs_.boxes.size(), 2U);
    warning_.TagWarned = false;
    tag_.MP3File(folder_ / "none.mp3"); // reading is silent
    EXPECT_EQ(dialogs_.boxes.size(), 2U);
}

TEST_F(Id3v2Read, settersWriteTheirFrames) {
    tag_.ArtistURL("1");
    tag_.BuyURL("2");
    tag_.AudioURL("3");
    tag_.Copyright("4");
    tag_.Composer("5");
    tag_.OriginalArtist("6");
    tag_.LinkTo("7");
    tag_.PlayCounter("8");
    tag_.EncodedBy("9");
    tag_.Title("10");
    tag_.Artist("11");
    tag_.Album("12");
    tag_.Year("13");
    tag_.Comment("14");
    tag_.Lyrics("15");
    tag_.genre(17);
    tag_.track("16");
    const std::array<std::pair<std::string, std::string>, 17> frames{{
        {"WOAR", "1"},
        {"WCOM", "2"},
        {"WOAF", "3"},
        {"TCOP", "4"},
        {"TCOM", "5"},
        {"TOPE", "6"},
        {"WXXX", "7\0"s},
        {"PCNT", "8"},
        {"TENC", "9"},
        {"TIT2", "10"},
        {"TPE1", "11"},
        {"TALB", "12"},
        {"TYER", "13"},
        {"COMM", "\0nt\0"
                 "14"s},
        {"USLT", "15\0"s},
        {"TCON", "(17)Rock"},
        {"TRCK", "16"},
    }};
    for (std::size_t index = 0; index < frames.size(); ++index) {
        EXPECT_EQ(tag_.Frame(static_cast<std::int32_t>(index) + 1), frames[index].first);
        EXPECT_EQ(tag_.TagText(frames[index].first, 1), frames[index].second);
    }
    EXPECT_EQ(tag_.LinkTo(), "7");
    EXPECT_EQ(tag_.Comment(), "14");
    EXPECT_EQ(tag_.genre(), 17);
    EXPECT_EQ(tag_.OtherGenreName(), "");
    tag_.OtherGenreName("Mine");
    EXPECT_EQ(tag_.TagText("TCON", 1), "(17)Mine");
    EXPECT_EQ(tag_.OtherGenreName(), "Mine");
    tag_.Title("new");
    EXPECT_EQ(tag_.TagsInFrame("TIT2"), 1);
    EXPECT_EQ(tag_.Frame(tag_.FrameCount()), "TIT2"); // goes to the end
    EXPECT_EQ(cMP3ID3v2::GenreName(78), "Rock 'n'Roll");
}

TEST_F(Id3v2Read, manyFramesTakeNoLongTime) {
    std::string frames;
    for (std::uint32_t number = 0; number < 100000; ++number) {
        frames += frame("T" + bigEndian(number).substr(1), "");
    }
    load(tag(frames));
    EXPECT_EQ(tag_.FrameCount(), 100000);
}

} // namespace
} // namespace tovik::tags
