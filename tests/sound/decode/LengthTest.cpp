// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/Media.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tovik::sound::test {
namespace {

std::int64_t framesIn(const std::vector<float>& samples, const Decoder& decoder) {
    return static_cast<std::int64_t>(samples.size()) / decoder.channels();
}

TEST(Length, TheScannedLengthIsWhatIsDecoded) {
    for (const MediaFile& file : goodMedia()) {
        const std::unique_ptr<Decoder> decoder = openMedia(file.name);
        const std::int64_t length = scannedLength(*decoder);
        const std::int64_t decoded = framesIn(readAll(*decoder), *decoder);
        if (file.kind == "wma") {
            EXPECT_NEAR(static_cast<double>(length), static_cast<double>(decoded), 2500.0)
                << file.name;
        } else {
            EXPECT_EQ(length, decoded) << file.name;
        }
    }
}

TEST(Length, EncodedFilesAreAsLongAsTheirSource) {
    int checked = 0;
    for (const MediaFile& file : goodMedia()) {
        if (file.frames > 0) {
            const std::unique_ptr<Decoder> decoder = openMedia(file.name);
            EXPECT_EQ(framesIn(readAll(*decoder), *decoder), file.frames) << file.name;
            EXPECT_EQ(decoder->sampleRate(), file.rate) << file.name;
            EXPECT_EQ(decoder->channels(), std::min(file.channels, 2)) << file.name;
            ++checked;
        }
    }
    EXPECT_GT(checked, 40);
}

TEST(Length, OnlyEstimatesHaveAScan) {
    EXPECT_NE(openMedia("mp3_vbr.mp3")->lengthScan(), nullptr);
    EXPECT_NE(openMedia("flac_16_44100.flac")->lengthScan(), nullptr);
    EXPECT_EQ(openMedia("wav_s16_44100_stereo.wav")->lengthScan(), nullptr);
    EXPECT_EQ(openMedia("ogg_44100.ogg")->lengthScan(), nullptr);
    EXPECT_EQ(openMedia("song.it")->lengthScan(), nullptr);
}

TEST(Length, AScanWorksInSlicesBesideTheDecoder) {
    // 400 times the same frames without a header that tells their number: an hour of sound.
    const auto part = fileBytes(mediaPath("mp3_vbr_no_xing.mp3"));
    std::vector<std::byte> bytes;
    for (int n = 0; n < 400; ++n) {
        bytes.insert(bytes.end(), part.begin(), part.end());
    }
    const OpenResult opened = openDecoder(FormatFamily::stream, bytes);
    ASSERT_TRUE(opened.decoder);
    const std::unique_ptr<PacketScan> scan = opened.decoder->lengthScan();
    const std::vector<float> before = readFrames(*opened.decoder, 5000);
    int slices = 1;
    while (!scan->run(std::chrono::milliseconds(1))) {
        EXPECT_EQ(readFrames(*opened.decoder, 100).size(), 200U);
        ++slices;
    }
    EXPECT_GT(slices, 3);
    EXPECT_TRUE(scan->run(std::chrono::milliseconds(1)));
    const auto once = static_cast<double>(scannedLength(*openMedia("mp3_vbr_no_xing.mp3")));
    EXPECT_NEAR(static_cast<double>(scan->lengthFrames()), 400.0 * once, 1.0);
    opened.decoder->seek(0);
    EXPECT_EQ(readFrames(*opened.decoder, 5000), before);
}

TEST(Length, AScanMayBeDroppedAndOutlivesItsDecoder) {
    std::unique_ptr<Decoder> decoder = openMedia("mp3_vbr_no_xing.mp3");
    const std::int64_t length = scannedLength(*openMedia("mp3_vbr_no_xing.mp3"));
    std::unique_ptr<PacketScan> scan = decoder->lengthScan();
    decoder.reset();
    while (!scan->run(std::chrono::milliseconds(0))) {
    }
    EXPECT_EQ(scan->lengthFrames(), length);
    scan = openMedia("mp3_vbr_no_xing.mp3")->lengthScan();
    EXPECT_FALSE(scan->run(std::chrono::milliseconds(0)));
    scan.reset();
}

TEST(Length, AWavThatClaimsMoreThanItHoldsTellsWhatItHolds) {
    auto bytes = fileBytes(mediaPath("wav_s24_44100_stereo.wav"));
    constexpr std::size_t kHeadBytes = 44;
    constexpr std::size_t kFrames = 10'000;
    bytes.resize(kHeadBytes + kFrames * 6 + 4);
    const OpenResult opened = openDecoder(FormatFamily::stream, bytes);
    ASSERT_TRUE(opened.decoder);
    EXPECT_EQ(opened.decoder->lengthFrames(), static_cast<std::int64_t>(kFrames));
    EXPECT_EQ(readAll(*opened.decoder).size(), 2 * kFrames);
}

TEST(Length, PartsOfACutSineJoinBitForBit) {
    for (const std::string suffix : {".wav", ".flac"}) {
        std::vector<float> joined;
        for (const std::string part : {"gapless_1", "gapless_2", "gapless_3"}) {
            const std::vector<float> samples = readAll(*openMedia(part + suffix));
            joined.insert(joined.end(), samples.begin(), samples.end());
        }
        EXPECT_EQ(joined, readAll(*openMedia("gapless_whole.wav"))) << suffix;
    }
}

} // namespace
} // namespace tovik::sound::test
