// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/Media.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <unistd.h>

namespace tovik::sound::test {
namespace {

constexpr std::size_t kMostFrames = 3'000'000; // more than any of the media has

std::size_t frameCount(const std::vector<float>& samples, const Decoder& decoder) {
    return samples.size() / static_cast<std::size_t>(decoder.channels());
}

TEST(Broken, TruncatedAtEveryTenthDecodesToAnEndOrIsRefused) {
    for (const MediaFile& file : goodMedia()) {
        const auto bytes = fileBytes(mediaPath(file.name));
        for (std::size_t tenth = 0; tenth < 10; ++tenth) {
            const std::span part = std::span(bytes).first(bytes.size() * tenth / 10);
            for (const FormatFamily family : kFamilies) {
                const OpenResult opened = openDecoder(family, part);
                if (opened.decoder) {
                    Decoder& decoder = *opened.decoder;
                    EXPECT_EQ(family, familyOf(file)) << file.name << " at " << tenth;
                    const auto frames = frameCount(readAll(decoder, 4096, kMostFrames), decoder);
                    EXPECT_LT(frames, kMostFrames) << file.name << " at " << tenth;
                    decoder.seek(static_cast<std::int64_t>(frames / 2));
                    EXPECT_GT(readFrames(decoder, 100).size(), 0U) << file.name << " at " << tenth;
                }
            }
        }
    }
}

TEST(Broken, HalfOfEachSoundFileStillPlays) {
    for (const MediaFile& file : goodMedia()) {
        // Half of the file with the large tag is that tag; the links have one page of sound, which
        // is known only as a whole.
        if (isModule(file) || file.source == "-" || file.name == "mp3_id3v2_large.mp3" ||
            file.name.starts_with("link_")) {
            continue;
        }
        const auto bytes = fileBytes(mediaPath(file.name));
        const OpenResult opened =
            openDecoder(familyOf(file), std::span(bytes).first(bytes.size() / 2));
        ASSERT_TRUE(opened.decoder) << file.name;
        const auto whole = openMedia(file.name);
        const auto wholeFrames = frameCount(readAll(*whole), *whole);
        const std::int64_t told = scannedLength(*opened.decoder);
        const auto frames = frameCount(readAll(*opened.decoder), *opened.decoder);
        EXPECT_GE(frames, wholeFrames / 4) << file.name;
        EXPECT_LT(frames, wholeFrames) << file.name;
        if (file.kind != "wma" && file.kind != "ogg") {
            EXPECT_EQ(told, static_cast<std::int64_t>(frames)) << file.name;
        }
    }
}

TEST(Broken, SeeksInATruncatedFileAreExact) {
    std::mt19937 random = sameRandom();
    for (const std::string name :
         {"mp3_vbr.mp3", "mp3_cbr128.mp3", "mp3_vbr_no_xing.mp3", "ogg_44100.ogg",
          "flac_16_44100.flac", "flac_no_seektable.flac", "wav_s16_44100_stereo.wav"}) {
        const auto bytes = fileBytes(mediaPath(name));
        const FormatFamily family =
            name.starts_with("flac") ? FormatFamily::flac : FormatFamily::stream;
        const OpenResult opened =
            openDecoder(family, std::span(bytes).first(bytes.size() * 6 / 10 + 1));
        ASSERT_TRUE(opened.decoder) << name;
        const std::vector<float> whole = readAll(*opened.decoder);
        for (int n = 0; n < 40; ++n) {
            const std::size_t last = whole.size() / 2 - 1;
            const auto frame = std::uniform_int_distribution<std::size_t>(0, last)(random);
            ASSERT_EQ(opened.decoder->seek(static_cast<std::int64_t>(frame)),
                      static_cast<std::int64_t>(frame))
                << name;
            const std::vector<float> part = readFrames(*opened.decoder, 2000);
            const std::size_t count = std::min<std::size_t>(4000, whole.size() - 2 * frame);
            ASSERT_EQ(part.size(), count) << name;
            ASSERT_TRUE(std::equal(part.begin(), part.end(),
                                   whole.begin() + static_cast<std::ptrdiff_t>(2 * frame)))
                << name << " at " << frame;
        }
    }
}

// Noise in the middle of a file must neither shorten it nor move what comes behind it.
TEST(Broken, DamageIsReplacedByWhatHasItsLength) {
    for (const std::string name : {"flac_16_44100.flac", "ogg_44100.ogg"}) {
        auto bytes = fileBytes(mediaPath(name));
        std::mt19937 random = sameRandom();
        for (std::size_t n = bytes.size() / 2; n < bytes.size() / 2 + 3000; ++n) {
            bytes[n] = static_cast<std::byte>(random() & 0xFFU);
        }
        const FormatFamily family =
            name.starts_with("flac") ? FormatFamily::flac : FormatFamily::stream;
        const OpenResult opened = openDecoder(family, bytes);
        ASSERT_TRUE(opened.decoder) << name;
        const std::vector<float> damaged = readAll(*opened.decoder);
        const std::vector<float> good = readAll(*openMedia(name));
        ASSERT_EQ(damaged.size(), good.size()) << name;
        const auto quarter = static_cast<std::ptrdiff_t>(good.size() / 4);
        EXPECT_TRUE(std::equal(good.begin(), good.begin() + quarter, damaged.begin())) << name;
        EXPECT_TRUE(std::equal(good.end() - quarter, good.end(), damaged.end() - quarter)) << name;
        EXPECT_NE(damaged, good) << name;
    }
}

TEST(Broken, AFileThatIsDeletedWhilePlayingPlaysOn) {
    const TemporaryFolder folder;
    const std::string path = folder / "song.mp3";
    writeBytes(path, fileBytes(mediaPath("mp3_vbr.mp3")));
    const OpenResult opened = openDecoder(FormatFamily::stream, path);
    ASSERT_TRUE(opened.decoder);
    ASSERT_EQ(::unlink(path.c_str()), 0);
    EXPECT_EQ(readAll(*opened.decoder), readAll(*openMedia("mp3_vbr.mp3")));
}

TEST(Broken, AFileThatShrinksWhilePlayingEnds) {
    for (const std::string name : {"mp3_vbr.mp3", "wav_s16_44100_stereo.wav", "ogg_44100.ogg",
                                   "flac_16_44100.flac", "wma_44100.wma"}) {
        const TemporaryFolder folder;
        const std::string path = folder / name;
        const auto bytes = fileBytes(mediaPath(name));
        writeBytes(path, bytes);
        const FormatFamily family = name.starts_with("flac")  ? FormatFamily::flac
                                    : name.starts_with("wma") ? FormatFamily::wma
                                                              : FormatFamily::stream;
        const OpenResult opened = openDecoder(family, path);
        ASSERT_TRUE(opened.decoder) << name;
        const std::int64_t length = opened.decoder->lengthFrames();
        EXPECT_EQ(readFrames(*opened.decoder, 1000).size(), 2000U);
        ASSERT_EQ(::truncate(path.c_str(), static_cast<off_t>(bytes.size() / 2)), 0);
        EXPECT_LT(static_cast<std::int64_t>(readAll(*opened.decoder).size() / 2), length) << name;
        EXPECT_LE(opened.decoder->seek(length - 1000), length) << name;
        EXPECT_LE(readFrames(*opened.decoder, 1000).size(), 2000U);
        EXPECT_EQ(opened.decoder->seek(2000), 2000) << name;
        EXPECT_EQ(readFrames(*opened.decoder, 1000).size(), 2000U) << name;
    }
}

TEST(Broken, AFileThatIsEmptiedWhilePlayingEnds) {
    const TemporaryFolder folder;
    const std::string path = folder / "song.flac";
    writeBytes(path, fileBytes(mediaPath("flac_16_44100.flac")));
    const OpenResult opened = openDecoder(FormatFamily::flac, path);
    ASSERT_TRUE(opened.decoder);
    ASSERT_EQ(::truncate(path.c_str(), 0), 0);
    EXPECT_LE(frameCount(readAll(*opened.decoder), *opened.decoder), 132'437U);
    opened.decoder->seek(100'000);
    EXPECT_TRUE(readFrames(*opened.decoder, 1000).empty());
}

} // namespace
} // namespace tovik::sound::test
