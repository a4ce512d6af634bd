// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/SoundStart.h"

#include "Samples.h"
#include "support/host/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tovik::tags {
namespace {

using namespace samples;
using base::RegularFile;

class SoundStart : public testing::Test {
protected:
    std::int64_t first(const std::string& bytes, std::int64_t from = 0) {
        const RegularFile file(folder_.write("song.mp3", bytes), RegularFile::Access::Read);
        return firstSound(file, from).value_or(-1);
    }

    bool isMpeg(const std::string& bytes) {
        const RegularFile file(folder_.write("song.mp3", bytes), RegularFile::Access::Read);
        return isMpegAudio(file);
    }

    test::TemporaryFolder folder_;
};

/// Frames with this head, of this length each.
std::string stream(const std::string& head, std::size_t length, int frames) {
    std::string one = head;
    one.resize(length, 'x');
    std::string bytes;
    for (int frame = 0; frame < frames; ++frame) {
        bytes += one;
    }
    return bytes;
}

TEST_F(SoundStart, isTheFirstFrameThatAnotherOneFollows) {
    EXPECT_EQ(first(sound(2)), 0);
    EXPECT_EQ(first(std::string(1000, 'x') + sound(2)), 1000);
    EXPECT_EQ(first(std::string(1000, 'x') + sound(2), 1000), 1000);
    EXPECT_EQ(first(std::string(1000, 'x') + sound(3), 1001), 1000 + 417);
    EXPECT_EQ(first(std::string(70000, 'x') + sound(2)), 70000);
    EXPECT_EQ(first("\xFF\xFB\x90\x44 no frame \xFF\xFB\x90\x44" + sound(2)), 18);
    EXPECT_EQ(first(""), -1);
    EXPECT_EQ(first(sound(1)), 0 - 1);
    EXPECT_EQ(first(std::string(200000, '\xFF')), -1);
}

TEST_F(SoundStart, isFoundAcrossTheEdgesOfBlocks) {
    for (std::size_t before = 65530; before <= 65540; ++before) {
        EXPECT_EQ(first(std::string(before, 'x') + sound(2)), static_cast<std::int64_t>(before));
    }
}

TEST_F(SoundStart, knowsAllVersionsAndLayers) {
    struct Row {
        std::string head;
        std::size_t length;
    };

    const std::array rows{
        Row{"\xFF\xFB\x92\x44", 418}, // 1, layer 3, 128 kbit/s, padding
        Row{"\xFF\xFA\x90\x44", 417}, // with a checksum
        Row{"\xFF\xFD\x94\x44", 480}, // layer 2, 160 kbit/s at 48000
        Row{"\xFF\xFF\x92\x44", 316}, // layer 1, 288 kbit/s, padding: 78 slots and one
        Row{"\xFF\xF3\x80\x44", 208}, // 2, layer 3, 64 kbit/s at 22050
        Row{"\xFF\xF5\x84\x44", 384}, // layer 2, 64 kbit/s at 24000
        Row{"\xFF\xF7\x88\x44", 384}, // layer 1, 128 kbit/s at 16000
        Row{"\xFF\xE3\x48\x44", 288}, // 2.5, layer 3, 32 kbit/s at 8000
    };
    for (const Row& row : rows) {
        EXPECT_EQ(first("junk" + stream(row.head, row.length, 2)), 4) << row.length;
        EXPECT_TRUE(isMpeg(stream(row.head, row.length, 4))) << row.length;
        EXPECT_EQ(first(stream(row.head, row.length - 1, 2)), -1) << row.length;
        EXPECT_EQ(first(stream(row.head, row.length + 1, 2)), -1) << row.length;
    }
    for (const std::string head : {"\xFF\xEB\x90\x44", "\xFF\xF9\x90\x44", "\xFF\xFB\xF0\x44",
                                   "\xFF\xFB\x9C\x44", "\xFF\xDB\x90\x44"}) {
        EXPECT_EQ(first(stream(head, 417, 5)), -1);
    }
}

TEST_F(SoundStart, theNextFrameIsOfTheSameStream) {
    EXPECT_EQ(first(stream("\xFF\xFB\x90\x44", 417, 1) + "\xFF\xFB\x94\x44"), -1); // another rate
    EXPECT_EQ(first(stream("\xFF\xFB\x90\x44", 417, 1) + "\xFF\xFD\x90\x44"), -1); // layer
    EXPECT_EQ(first(stream("\xFF\xFB\x90\x44", 417, 1) + "\xFF\xFB\xA0\x44"), 0);  // bits
}

TEST_F(SoundStart, aFrameWhereATagSaysSoNeedsNoOther) {
    const std::string damaged = "\xFF\xFB\x90\x44" + std::string(500, 'x') + sound(3);
    const std::string body(200, '\0');
    EXPECT_EQ(first(head(sevenBits(200)) + body + damaged, 10), 210);
    EXPECT_EQ(first(head(bigEndian(210)) + body + damaged, 10), 210);
    EXPECT_EQ(first(head(bigEndian(77)) + body + damaged, 10), 210 + 504);
}

TEST_F(SoundStart, freeFormatCountsWhereSoundShouldBegin) {
    const std::string free = stream("\xFF\xFB\x00\x44"s, 600, 6);
    EXPECT_EQ(first(free), 0);
    EXPECT_TRUE(isMpeg(free));
    EXPECT_EQ(first(head(sevenBits(200)) + std::string(200, '\0') + free, 10), 210);
    EXPECT_EQ(first("junk" + free), -1);
    EXPECT_FALSE(isMpeg(stream("\xFF\xFB\x00\x44"s, 600, 3)));
}

TEST_F(SoundStart, mpegAudioHasFramesInARow) {
    EXPECT_TRUE(isMpeg(sound(4)));
    EXPECT_TRUE(isMpeg(std::string(5000, 'x') + sound(4) + "more"));
    EXPECT_TRUE(isMpeg(sound(2))); // up to the end
    EXPECT_TRUE(isMpeg(sound(2) + "TAG" + std::string(125, ' ')));
    EXPECT_FALSE(isMpeg(sound(2) + "more"));
    EXPECT_FALSE(isMpeg(sound(1)));
    EXPECT_FALSE(isMpeg(""));
    EXPECT_FALSE(isMpeg("only a text"));
}

TEST_F(SoundStart, otherKindsOnlyCarryFrames) {
    for (const std::string kind : {"RIFF", "OggS", "fLaC", "\x30\x26\xB2\x75", "1234ftypM4A "}) {
        EXPECT_FALSE(isMpeg(kind + std::string(40, 'x') + sound(10))) << kind;
        EXPECT_FALSE(isMpeg(head(sevenBits(20)) + std::string(20, '\0') + kind + sound(10)));
    }
}

} // namespace
} // namespace tovik::tags
