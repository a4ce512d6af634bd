// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/MpegHeader.h"

#include <gtest/gtest.h>

#include <string>

namespace tovik::tags {
namespace {

/// The rates as a table by column, read the other way round from the program's: version 1 with
/// layers 1, 2, 3, then versions 2 with layers 1, 2, 3.
constexpr std::array<std::array<int, 16>, 6> kColumns{{
    {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448, 0},
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384, 0},
    {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 0},
    {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448, 0},
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384, 0},
    {0, 8, 16, 24, 32, 64, 80, 56, 64, 128, 160, 112, 128, 256, 320, 0},
}};

std::string padded(std::string text, std::size_t width) {
    text.resize(width, ' ');
    return text;
}

/// What the two bytes in the middle of a head should give.
struct Expected {
    bool valid = true;
    std::string version;
    char layer = '7'; ///< as the test sets it before
    std::string rate = "321";
    std::string hertz;
    int length = 7;
    int padding = 7;
    int privateBit = 7;
};

Expected expected(unsigned second, unsigned third) {
    Expected result;
    const unsigned versionBits = second / 8 % 4;
    if (versionBits == 1) {
        result.version = "-1 ";
        result.valid = false;
        result.hertz = "0    ";
        return result;
    }
    result.version = versionBits == 3 ? "1.0" : (versionBits == 2 ? "2.0" : "2.5");
    const unsigned layerBits = second / 2 % 4;
    result.layer = "0321"[layerBits];
    if (layerBits == 0) {
        result.valid = false;
        result.hertz = "0    ";
        return result;
    }
    const std::size_t layer = 4 - layerBits;
    const int rate = kColumns.at((versionBits == 3 ? 0 : 3) + layer - 1).at(third / 16);
    result.rate = padded(rate == 0 ? "NA" : std::to_string(rate), 3);
    if (third / 4 % 4 == 3) {
        result.valid = false;
        result.hertz = "0    ";
        return result;
    }
    constexpr std::array<int, 3> kHertz{44100, 48000, 32000};
    const int divisor = versionBits == 3 ? 1 : (versionBits == 2 ? 2 : 4);
    const int hertz = kHertz.at(third / 4 % 4) / divisor;
    result.hertz = padded(std::to_string(hertz), 5);
    result.padding = static_cast<int>(third / 2 % 2);
    result.privateBit = static_cast<int>(third % 2);
    if (rate == 0) {
        result.valid = false;
        return result;
    }
    const double share = rate * 1000.0 / hertz;
    result.length = layer == 1 ? static_cast<int>(share * 12 + result.padding) * 4
                               : static_cast<int>(share * 144) + result.padding;
    return result;
}

TEST(MpegHeader, allMiddleBytes) {
    std::size_t valid = 0;
    for (unsigned bytes = 0; bytes < 65536; ++bytes) {
        const auto second = static_cast<std::uint8_t>(bytes / 256);
        const auto third = static_cast<std::uint8_t>(bytes % 256);
        MpegHeader header;
        header.layer = "7";
        header.bitrate = "321";
        header.frameLength = header.padding = header.privateBit = 7;
        const bool result = header.ParseHeader({0xFF, second, third, 0});
        const Expected wanted = expected(second, third);
        ASSERT_EQ(result, wanted.valid) << bytes;
        ASSERT_EQ(header.valid, wanted.valid) << bytes;
        ASSERT_EQ(header.version.bytes(), wanted.version) << bytes;
        ASSERT_EQ(header.layer.bytes(), std::string(1, wanted.layer)) << bytes;
        ASSERT_EQ(header.bitrate.bytes(), wanted.rate) << bytes;
        ASSERT_EQ(header.sampleRate.bytes(), wanted.hertz) << bytes;
        ASSERT_EQ(header.frameLength, wanted.length) << bytes;
        ASSERT_EQ(header.padding, wanted.padding) << bytes;
        ASSERT_EQ(header.privateBit, wanted.privateBit) << bytes;
        valid += result ? 1U : 0U;
    }
    // Version, layer and rate in Hz: 3 of 4 each, 14 of 16 rates; all other bits are free.
    EXPECT_EQ(valid, 65536U * 27 / 64 * 14 / 16);
}

TEST(MpegHeader, bitratesOfAllBytes) {
    const std::array<std::pair<std::string_view, std::size_t>, 3> versions{
        {{"1.0", 0}, {"2.0", 3}, {"2.5", 3}}};
    for (const auto& [version, column] : versions) {
        for (std::size_t layer = 1; layer <= 3; ++layer) {
            MpegHeader header;
            header.version = version;
            header.layer = std::to_string(layer);
            for (unsigned byte = 0; byte < 256; ++byte) {
                const int rate = kColumns.at(column + layer - 1).at(byte / 16);
                EXPECT_EQ(header.BitrateFromByte(static_cast<std::uint8_t>(byte)),
                          rate == 0 ? "NA" : std::to_string(rate));
            }
        }
    }
    MpegHeader header;
    EXPECT_EQ(header.BitrateFromByte(0x90), "NA");
    header.version = "-1";
    header.layer = "3";
    EXPECT_EQ(header.BitrateFromByte(0x90), "NA");
    header.version = "1.0";
    header.layer = "0";
    EXPECT_EQ(header.BitrateFromByte(0x90), "NA");
}

TEST(MpegHeader, theLastByteTellsMode) {
    constexpr std::array<std::string_view, 4> kModes{"Stereo      ", "Joint Stereo", "Dual Channel",
                                                     "Mono        "};
    constexpr std::array<std::string_view, 4> kExtensions{"00", "01", "10", "11"};
    constexpr std::array<std::string_view, 4> kEmphases{"None    ", "50/15 ms", "Reserved",
                                                        "CCIT J.1"};
    for (unsigned byte = 0; byte < 256; ++byte) {
        MpegHeader header;
        ASSERT_TRUE(header.ParseHeader({0xFF, 0xFB, 0x90, static_cast<std::uint8_t>(byte)}));
        EXPECT_EQ(header.channelMode.bytes(), kModes.at(byte / 64));
        EXPECT_EQ(header.modeExtension.bytes(), kExtensions.at(byte / 16 % 4));
        EXPECT_EQ(header.copyright, byte / 8 % 2 == 1);
        EXPECT_EQ(header.original, byte / 4 % 2 == 1);
        EXPECT_EQ(header.emphasis.bytes(), kEmphases.at(byte % 4));
    }
}

TEST(MpegHeader, theChecksumBitIsTurnedRound) {
    MpegHeader header;
    header.ParseHeader({0xFF, 0xFB, 0x90, 0});
    EXPECT_FALSE(header.crcPresent);
    header.ParseHeader({0xFF, 0xFA, 0x90, 0});
    EXPECT_TRUE(header.crcPresent);
}

TEST(MpegHeader, aHeadWithoutARateIsTakenApartAllTheSame) {
    for (const std::uint8_t third : {std::uint8_t{0x02}, std::uint8_t{0xF2}}) {
        MpegHeader header;
        header.frameLength = 77;
        EXPECT_FALSE(header.ParseHeader({0xFF, 0xFB, third, 0xC8}));
        EXPECT_EQ(header.bitrate.bytes(), "NA ");
        EXPECT_EQ(header.sampleRate.trimmed(), "44100");
        EXPECT_EQ(header.padding, 1);
        EXPECT_EQ(header.channelMode.trimmed(), "Mono");
        EXPECT_TRUE(header.copyright);
        EXPECT_EQ(header.frameLength, 77);
    }
}

TEST(FixedText, isCutAndFilled) {
    FixedText<4> text;
    EXPECT_EQ(text.bytes(), "    ");
    text = "ab";
    EXPECT_EQ(text.bytes(), "ab  ");
    EXPECT_EQ(text.trimmed(), "ab");
    text = "abcdef";
    EXPECT_EQ(text.bytes(), "abcd");
    text = "abc\xC3\xA4";
    EXPECT_EQ(text.bytes(), "abc ");
}

} // namespace
} // namespace tovik::tags
