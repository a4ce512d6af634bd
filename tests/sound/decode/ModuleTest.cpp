// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/Media.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace tovik::sound::test {
namespace {

constexpr std::int64_t kSongFrames = 338'688; // 128 rows of 60 ms at 44100 Hz
constexpr std::int64_t kFadeFrames = 4'410;

class Module : public testing::TestWithParam<std::string> {
protected:
    [[nodiscard]] static std::unique_ptr<Decoder> open(bool repeat) {
        return std::move(
            openDecoder(FormatFamily::music, mediaPath(GetParam()), {.repeat = repeat}).decoder);
    }
};

TEST_P(Module, IsStereoAtTheEnginesRate) {
    const auto decoder = open(false);
    ASSERT_TRUE(decoder);
    EXPECT_EQ(decoder->sampleRate(), 44100);
    EXPECT_EQ(decoder->channels(), 2);
    EXPECT_FALSE(decoder->loops());
    EXPECT_GE(decoder->orders(), 2);
}

TEST_P(Module, EndsAtItsLengthAndStaysThere) {
    const auto decoder = open(false);
    const std::vector<float> all = readAll(*decoder, 1000);
    EXPECT_EQ(decoder->lengthFrames(), kSongFrames + kFadeFrames);
    EXPECT_EQ(static_cast<std::int64_t>(all.size() / 2), decoder->lengthFrames());
    EXPECT_GT(std::ranges::max(all), 0.05F);
    EXPECT_TRUE(readFrames(*decoder, 100).empty());
    EXPECT_TRUE(readFrames(*decoder, 100).empty());
}

TEST_P(Module, RepeatsWithoutEnd) {
    const auto decoder = open(true);
    EXPECT_TRUE(decoder->loops());
    EXPECT_EQ(decoder->lengthFrames(), kSongFrames);
    const auto frames = static_cast<std::size_t>(kSongFrames);
    const std::vector<float> first = readFrames(*decoder, frames);
    const std::vector<float> second = readFrames(*decoder, frames);
    ASSERT_EQ(first.size(), 2 * frames);
    ASSERT_EQ(second.size(), 2 * frames);
    const auto silent = [](float sample) { return sample == 0.0F; };
    EXPECT_FALSE(std::ranges::all_of(second, silent));
}

TEST_P(Module, PositionsOfARepeatingSongWrap) {
    const auto decoder = open(true);
    const std::int64_t position = decoder->seek(kSongFrames + 44'100);
    EXPECT_GE(position, 0);
    EXPECT_LT(position, kSongFrames);
    EXPECT_NEAR(static_cast<double>(position), 44'100.0, 2646.0);
}

INSTANTIATE_TEST_SUITE_P(Media, Module,
                         testing::Values("song.mod", "song.s3m", "song.xm", "song.it", "song.mtm",
                                         "song.umx"),
                         [](const auto& test) {
                             return test.param.substr(test.param.find('.') + 1);
                         });

} // namespace
} // namespace tovik::sound::test
