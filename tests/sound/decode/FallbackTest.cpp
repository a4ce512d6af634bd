// SPDX-License-Identifier: GPL-3.0-or-later
// What FFmpeg and the decoders of one kind both read sounds the same and is as long.
#include "sound/decode/FallbackModule.h"
#include "sound/decode/Media.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace tovik::sound::test {
namespace {

// Where FFmpeg knows less, by the names of files: it has no reader for these, or cuts off other
// ends where the file does not tell them.
bool isBeyondFfmpeg(const MediaFile& file) {
    return isModule(file) || file.kind == "adpcm" || file.name == "mp3_in_wav.wav" ||
           file.name == "mp3_free_format.mp3" || file.name == "ogg_chained.ogg" ||
           (file.kind == "flac" && file.name.ends_with(".ogg")) ||
           (file.kind == "mp3" && file.frames == 0);
}

std::unique_ptr<Decoder> byFfmpeg(const MediaFile& file) {
    const std::string path = mediaPath(file.name);
    return openByFallback(familyOf(file), openFile(path)).decoder;
}

TEST(Fallback, BothDecodersGiveTheSame) {
    int compared = 0;
    for (const MediaFile& file : goodMedia()) {
        if (isBeyondFfmpeg(file)) {
            continue;
        }
        const std::unique_ptr<Decoder> fallback = byFfmpeg(file);
        ASSERT_TRUE(fallback) << file.name;
        const std::unique_ptr<Decoder> decoder = openMedia(file.name);
        EXPECT_EQ(decoder->sampleRate(), fallback->sampleRate()) << file.name;
        ASSERT_EQ(decoder->channels(), fallback->channels()) << file.name;
        EXPECT_EQ(scannedLength(*decoder), scannedLength(*fallback)) << file.name;
        const std::vector<float> one = readAll(*decoder);
        const std::vector<float> other = readAll(*fallback);
        ASSERT_EQ(one.size(), other.size()) << file.name;
        const bool exact = file.kind != "mp3" && file.kind != "ogg";
        for (std::size_t n = 0; n < one.size(); ++n) {
            ASSERT_NEAR(one[n], other[n], exact ? 1e-6 : 2e-4) << file.name << " at " << n;
        }
        ++compared;
    }
    EXPECT_GT(compared, 40);
}

TEST(Fallback, SeeksOfFfmpegStandWhereTheyShould) {
    std::mt19937 random = sameRandom();
    for (const MediaFile& file : goodMedia()) {
        if (isBeyondFfmpeg(file) || file.kind == "wma") {
            continue;
        }
        const std::unique_ptr<Decoder> fallback = byFfmpeg(file);
        const std::vector<float> whole = readAll(*fallback);
        const auto channels = static_cast<std::size_t>(fallback->channels());
        for (int n = 0; n < 10; ++n) {
            const std::size_t last = whole.size() / channels - 1;
            const auto frame = std::uniform_int_distribution<std::size_t>(0, last)(random);
            ASSERT_EQ(fallback->seek(static_cast<std::int64_t>(frame)),
                      static_cast<std::int64_t>(frame))
                << file.name;
            const std::vector<float> part = readFrames(*fallback, 2000);
            ASSERT_EQ(part.size(), std::min(2000 * channels, whole.size() - channels * frame));
            ASSERT_TRUE(std::equal(part.begin(), part.end(),
                                   whole.begin() + static_cast<std::ptrdiff_t>(channels * frame)))
                << file.name << " at " << frame;
        }
    }
}

TEST(Fallback, HalfOfEachFileStillPlaysByFfmpeg) {
    for (const MediaFile& file : goodMedia()) {
        if (isBeyondFfmpeg(file) || file.source == "-" || file.name == "mp3_id3v2_large.mp3" ||
            file.name.starts_with("link_")) {
            continue;
        }
        const auto bytes = fileBytes(mediaPath(file.name));
        const OpenResult opened =
            openByFallback(familyOf(file), keepBytes(std::span(bytes).first(bytes.size() / 2)));
        ASSERT_TRUE(opened.decoder) << file.name;
        const std::size_t half = readAll(*opened.decoder).size();
        const std::size_t whole = readAll(*openMedia(file.name)).size();
        EXPECT_GE(half, whole / 4) << file.name;
        EXPECT_LT(half, whole) << file.name;
    }
}

TEST(Fallback, ModulesAreNotItsBusiness) {
    EXPECT_EQ(openByFallback(FormatFamily::stream, openFile(mediaPath("song.xm"))).status,
              OpenStatus::notMine);
}

} // namespace
} // namespace tovik::sound::test
