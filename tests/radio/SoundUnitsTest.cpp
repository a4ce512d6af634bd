// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/SoundUnits.h"

#include "radio/FrameUnits.h"
#include "radio/SongComments.h"
#include "radio/Sounds.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <vector>

namespace tovik::radio {
namespace {

using test::adtsFrame;
using test::mediaBytes;
using test::mpegFrame;
using test::spanOf;

struct Taken {
    std::vector<std::string> units;
    std::vector<std::uint64_t> begins;
    std::size_t heads = 0;
    std::size_t fresh = 0;
    std::string ending;

    [[nodiscard]] std::string all() const {
        std::string text;
        for (const std::string& unit : units) {
            text += unit;
        }
        return text;
    }
};

/// Feeds a stream in blocks of so many bytes, and its end.
Taken feed(std::string_view stream, std::size_t block) {
    Taken taken;
    SoundUnits units;
    const auto take = [&](const SoundUnit& unit) {
        std::string text;
        for (const std::byte byte : unit.bytes) {
            text += static_cast<char>(byte);
        }
        taken.units.push_back(text);
        taken.begins.push_back(unit.begin);
        taken.heads += unit.head ? 1 : 0;
        taken.fresh += unit.fresh ? 1 : 0;
    };
    for (std::size_t at = 0; at < stream.size(); at += block) {
        units.feed(spanOf(stream.substr(at, block)), take);
    }
    units.feed({}, take);
    taken.ending = units.rule() != nullptr ? units.rule()->ending() : "";
    return taken;
}

struct Sample {
    const char* name;
    const char* ending;
    std::size_t fewest; ///< units
};

constexpr Sample kWhole[] = {
    {"mp3_cbr_no_info.mp3", ".mp3", 20}, {"mp3_vbr_no_xing.mp3", ".mp3", 20},
    {"mp3_22050.mp3", ".mp3", 20},       {"mp3_mono.mp3", ".mp3", 20},
    {"layer2.mp2", ".mp2", 20},          {"ogg_44100.ogg", ".ogg", 3},
    {"flac_in_ogg.ogg", ".ogg", 3},      {"flac_16_44100.flac", ".flac", 5},
    {"flac_24_48000.flac", ".flac", 5},
};

TEST(SoundUnitsTest, theUnitsOfAFileAreTheFileInBlocksOfAnySize) {
    for (const Sample& sample : kWhole) {
        const std::string file = mediaBytes(sample.name);
        ASSERT_FALSE(file.empty()) << sample.name;
        const Taken large = feed(file, 16'384);
        EXPECT_EQ(large.ending, sample.ending) << sample.name;
        EXPECT_GE(large.units.size(), sample.fewest) << sample.name;
        EXPECT_TRUE(large.all() == file)
            << sample.name << ": " << large.all().size() << " of " << file.size();
        EXPECT_EQ(feed(file, 1019).begins, large.begins) << sample.name;
    }
}

TEST(SoundUnitsTest, aStreamThatIsMetInTheMiddleBeginsWithAWholeUnit) {
    for (const char* const name : {"mp3_cbr_no_info.mp3", "mp3_vbr_no_xing.mp3", "layer2.mp2"}) {
        const std::string file = mediaBytes(name);
        const Taken whole = feed(file, 4096);
        const std::set<std::uint64_t> begins(whole.begins.begin(), whole.begins.end());
        for (const std::size_t from : {1U, 100U, 1001U, 5000U}) {
            const Taken part = feed(std::string_view(file).substr(from), 700);
            ASSERT_FALSE(part.begins.empty()) << name;
            EXPECT_LT(part.begins.front(), 3000U) << name;
            for (const std::uint64_t begin : part.begins) {
                EXPECT_TRUE(begins.contains(begin + from)) << name << " " << begin + from;
            }
        }
    }
}

TEST(SoundUnitsTest, whatStandsBetweenFramesIsLeftOut) {
    std::string stream = "\xFF\xFBjunk that looks like a frame";
    std::string sound;
    for (char sign = 'a'; sign < 'g'; ++sign) {
        sound += mpegFrame(sign);
    }
    std::string more;
    for (char sign = 'g'; sign < 'l'; ++sign) {
        more += mpegFrame(sign);
    }
    stream += sound + "TAG and something" + more;
    const Taken taken = feed(stream, 50);
    // The frame in front of what is none has nothing behind it that confirms it.
    EXPECT_TRUE(taken.all() == sound.substr(0, 5 * 417) + more) << taken.units.size();
}

TEST(SoundUnitsTest, aFrameThatIsCutOffIsNone) {
    const std::string stream =
        mpegFrame('a') + mpegFrame('b') + mpegFrame('c') + mpegFrame('d').substr(0, 400);
    EXPECT_EQ(feed(stream, 64).units.size(), 3U);
}

TEST(SoundUnitsTest, aSyncWithoutAFollowerIsNone) {
    std::string stream;
    for (int i = 0; i < 100; ++i) {
        stream += "\xFF\xFB\x90\x64 noise " + std::string(static_cast<std::size_t>(i), 'n');
    }
    const Taken taken = feed(stream, 512);
    EXPECT_EQ(taken.units.size(), 0U);
    EXPECT_EQ(taken.ending, "");
}

TEST(SoundUnitsTest, aacHasItsEnding) {
    const std::string stream =
        "x" + adtsFrame('a', 211) + adtsFrame('b', 300) + adtsFrame('c', 178) + adtsFrame('d', 240);
    const Taken taken = feed(stream, 33);
    EXPECT_EQ(taken.ending, ".aac");
    EXPECT_EQ(taken.all(), stream.substr(1));
    EXPECT_EQ(taken.units.size(), 4U);
}

TEST(SoundUnitsTest, lengthsOfFramesAreThoseOfTheStandard) {
    const auto lengthOf = [](std::string head) {
        head += "\x1F\xFC";
        const auto found = frameHead(spanOf(head));
        return found ? found->length : 0;
    };
    using namespace std::string_literals;
    EXPECT_EQ(lengthOf("\xFF\xFB\x90\x64"), 417U); // version 1, layer 3, 128 kbit/s, 44100 Hz
    EXPECT_EQ(lengthOf("\xFF\xFB\x92\x64"), 418U); // the same, padded
    EXPECT_EQ(lengthOf("\xFF\xFA\x90\x64"), 417U); // with a checksum
    EXPECT_EQ(lengthOf("\xFF\xFD\xA4\x04"), 576U); // version 1, layer 2, 192 kbit/s, 48000 Hz
    EXPECT_EQ(lengthOf("\xFF\xFF\xC0\x04"), 416U); // version 1, layer 1, 384 kbit/s, 44100 Hz
    EXPECT_EQ(lengthOf("\xFF\xF3\x80\x64"), 208U); // version 2, layer 3, 64 kbit/s, 22050 Hz
    EXPECT_EQ(lengthOf("\xFF\xE3\x88\x64"), 576U); // version 2.5, layer 3, 64 kbit/s, 8000 Hz
    EXPECT_EQ(lengthOf("\xFF\xFB\x00\x64"s), 0U);  // free format
    EXPECT_EQ(lengthOf("\xFF\xFB\xF0\x64"), 0U);   // no rate
    EXPECT_EQ(lengthOf("\xFF\xFB\x9C\x64"), 0U);   // no sampling rate
    EXPECT_EQ(lengthOf("\xFF\xEB\x90\x64"), 0U);   // no version
    EXPECT_EQ(lengthOf("\xFE\xFB\x90\x64"), 0U);
}

TEST(SoundUnitsTest, headsOfOggAreToldApartFromSound) {
    const Taken one = feed(mediaBytes("ogg_44100.ogg"), 4096);
    EXPECT_EQ(one.fresh, 1U);
    EXPECT_GE(one.heads, 2U);
    EXPECT_LT(one.heads, one.units.size());
    EXPECT_EQ(feed(mediaBytes("ogg_chained.ogg"), 4096).fresh, 3U);
    EXPECT_EQ(feed(mediaBytes("flac_chained.ogg"), 4096).fresh, 3U);
    EXPECT_EQ(feed(mediaBytes("flac_16_44100.flac"), 4096).fresh, 1U);
}

TEST(SoundUnitsTest, aHeadTellsItsTitle) {
    const std::string file = test::titledOgg("Ann", "Song");
    const auto rule = unitRuleOf(spanOf(file));
    ASSERT_NE(rule, nullptr);
    EXPECT_EQ(rule->titleOf(file), "Ann - Song");
    EXPECT_EQ(rule->titleOf(mediaBytes("ogg_44100.ogg")), "");
    EXPECT_EQ(feed(file, 100).all(), file);
    EXPECT_EQ(feed(file, 100).heads, 2U);
}

TEST(SoundUnitsTest, aPageThatIsDamagedIsLeftOut) {
    std::string file = mediaBytes("ogg_44100.ogg");
    const Taken whole = feed(file, 4096);
    const std::size_t broken = whole.units.size() - 2;
    file.at(static_cast<std::size_t>(whole.begins.at(broken)) + 100) ^= 1;
    const Taken taken = feed(file, 4096);
    EXPECT_EQ(taken.units.size(), whole.units.size() - 1);
    EXPECT_EQ(taken.units.back(), whole.units.back());
}

TEST(SoundUnitsTest, aFrameOfFlacThatIsDamagedIsLeftOut) {
    std::string file = mediaBytes("flac_16_44100.flac");
    const Taken whole = feed(file, 4096);
    const std::size_t broken = whole.units.size() - 4;
    const auto begin = static_cast<std::size_t>(whole.begins.at(broken));
    file.at(begin + 100) ^= 1;
    const Taken taken = feed(file, 4096);
    EXPECT_TRUE(taken.all() ==
                file.substr(0, begin) + file.substr(begin + whole.units.at(broken).size()));
}

TEST(SoundUnitsTest, whatIsNoSoundIsKnownToBeNone) {
    SoundUnits units;
    const std::string page = "<html>" + std::string(10'000, 'x');
    for (int i = 0; i < 30; ++i) {
        EXPECT_EQ(units.isUnknown(), i >= 27) << i;
        units.feed(spanOf(page), [](const SoundUnit&) { FAIL(); });
    }
    EXPECT_TRUE(units.isUnknown());
}

TEST(SongCommentsTest, artistAndTitleAreFoundInAnyCase) {
    EXPECT_EQ(songInComments(commentsOf("Ann", "Song")), "Ann - Song");
    EXPECT_EQ(songInComments(commentsOf("", "Song")), "Song");
    EXPECT_EQ(songInComments(commentsOf("Ann", "")), "Ann");
    EXPECT_EQ(songInComments(commentsOf("", "")), "");
    std::string upper = commentsOf("Ann", "Song");
    upper.replace(upper.find("artist"), 6, "ARTIST");
    EXPECT_EQ(songInComments(upper), "Ann - Song");
}

TEST(SongCommentsTest, aBlockThatIsBrokenTellsWhatItHolds) {
    const std::string block = commentsOf("Ann", "Song");
    for (std::size_t length = 0; length < block.size(); ++length) {
        const std::string told = songInComments(std::string_view(block).substr(0, length));
        EXPECT_TRUE(told.empty() || told == "Ann") << length;
    }
    EXPECT_EQ(songInComments("\xFF\xFF\xFF\xFF"), "");
}

} // namespace
} // namespace tovik::radio
