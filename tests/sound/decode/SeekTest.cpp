// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/decode/Media.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace tovik::sound::test {
namespace {

constexpr int kSeeks = 40;
constexpr std::size_t kFrames = 3000;

// The part of `all` that reading `frames` at `position` must give.
std::vector<float> partOf(const std::vector<float>& all, std::int64_t position,
                          std::size_t channels) {
    const std::size_t from = std::min(static_cast<std::size_t>(position) * channels, all.size());
    const std::size_t to = std::min(from + kFrames * channels, all.size());
    return {all.begin() + static_cast<std::ptrdiff_t>(from),
            all.begin() + static_cast<std::ptrdiff_t>(to)};
}

class Seek : public testing::TestWithParam<MediaFile> {
protected:
    Seek() : decoder(openMedia(GetParam().name)), whole(readAll(*decoder)) {}

    [[nodiscard]] std::size_t channels() const {
        return static_cast<std::size_t>(decoder->channels());
    }

    [[nodiscard]] std::int64_t length() const {
        return static_cast<std::int64_t>(whole.size() / channels());
    }

    [[nodiscard]] std::int64_t randomFrame() {
        return std::uniform_int_distribution<std::int64_t>(0, length() - 1)(random);
    }

    std::unique_ptr<Decoder> decoder;
    std::vector<float> whole;
    std::mt19937 random = sameRandom();
};

class ExactSeek : public Seek {
protected:
    /// What follows is the whole from `frame` on, bit for bit; of MPEG audio but for the order in
    /// which a filter bank sums.
    void expectWholeFrom(std::int64_t frame) {
        const std::vector<float> part = readFrames(*decoder, kFrames);
        const std::vector<float> expected = partOf(whole, frame, channels());
        if (GetParam().kind != "mp3") {
            ASSERT_EQ(part, expected) << "after a seek to " << frame;
            return;
        }
        ASSERT_EQ(part.size(), expected.size()) << "after a seek to " << frame;
        for (std::size_t n = 0; n < part.size(); ++n) {
            ASSERT_NEAR(part[n], expected[n], kLastBits) << "after a seek to " << frame;
        }
    }

private:
    static constexpr float kLastBits = 1.0F / (1 << 22);
};

TEST_P(ExactSeek, SoundIsThatOfTheWhole) {
    for (int n = 0; n < kSeeks; ++n) {
        const std::int64_t frame = randomFrame();
        ASSERT_EQ(decoder->seek(frame), frame);
        expectWholeFrom(frame);
    }
}

TEST_P(ExactSeek, EdgesStandWhereTheyShould) {
    const std::int64_t end = length();
    for (const std::int64_t frame : {end - 1, std::int64_t{0}, end, end + 1, end + 1'000'000,
                                     std::int64_t{1}, std::int64_t{-5}, end - 1}) {
        const std::int64_t expected = std::clamp<std::int64_t>(frame, 0, end);
        ASSERT_EQ(decoder->seek(frame), expected) << frame;
        expectWholeFrom(expected);
    }
}

class RowSeek : public Seek {};

TEST_P(RowSeek, SoundFromTheRowIsThatOfTheWhole) {
    constexpr std::int64_t kRowFrames = 44100 * 60 / 1000; // three ticks of 20 ms
    for (int n = 0; n < kSeeks; ++n) {
        const std::int64_t frame = randomFrame();
        const std::int64_t position = decoder->seek(frame);
        ASSERT_EQ(position % kRowFrames, 0);
        ASSERT_LE(std::abs(position - frame), kRowFrames + 4410);
        const std::vector<float> part = readFrames(*decoder, kFrames);
        const std::vector<float> expected = partOf(whole, position, channels());
        ASSERT_EQ(part.size(), expected.size());
        for (std::size_t i = 0; i < part.size(); ++i) {
            ASSERT_NEAR(part[i], expected[i], 1e-6F) << "sample " << i << " from " << position;
        }
    }
}

TEST_P(RowSeek, BeyondTheEndStandsAtTheEnd) {
    EXPECT_EQ(decoder->seek(length() + 7), length());
    EXPECT_TRUE(readFrames(*decoder, kFrames).empty());
    EXPECT_EQ(decoder->seek(0), 0);
    EXPECT_EQ(readAll(*decoder), whole);
}

std::vector<MediaFile> filesWhere(bool (*wanted)(const MediaFile&)) {
    std::vector<MediaFile> files = goodMedia();
    std::erase_if(files, [wanted](const MediaFile& file) { return !wanted(file); });
    return files;
}

std::string nameOf(const testing::TestParamInfo<MediaFile>& info) {
    std::string name = info.param.name;
    std::ranges::replace(name, '.', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Media, ExactSeek, testing::ValuesIn(filesWhere([](const MediaFile& file) {
                             return !isModule(file);
                         })),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(Media, RowSeek, testing::ValuesIn(filesWhere(&isModule)), nameOf);

} // namespace
} // namespace tovik::sound::test
