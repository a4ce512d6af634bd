// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/WavOutput.h"
#include "sound/output/CountingSource.h"
#include "sound/output/WavFile.h"
#include "support/host/TemporaryFolder.h"

#include <gmock/gmock.h>

namespace tovik::sound {
namespace {

using testing::HasSubstr;

class WavOutputTest : public testing::Test {
    const test::TemporaryFolder folder_;

protected:
    const std::string path_ = folder_ / "render.wav";
};

TEST_F(WavOutputTest, WritesWhatTheSourceMixes) {
    WavOutput device(path_);
    CountingSource source;
    EXPECT_FALSE(device.restsWhenIdle());
    EXPECT_EQ(device.latencyFrames(), 0);
    ASSERT_TRUE(device.open(source));
    device.advance(5000);
    device.advance(3);
    device.close();
    EXPECT_TRUE(device.ok()) << device.error();
    EXPECT_EQ(source.decodedAhead(), 5003U);
    EXPECT_EQ(source.largestBlock(), 1024U);
    const auto wav = readWav(path_);
    ASSERT_TRUE(wav);
    EXPECT_EQ(wav->sampleRate, 44100U);
    EXPECT_EQ(wav->factFrames, 5003U);
    ASSERT_EQ(wav->samples.size(), 10'006U);
    for (std::size_t frame = 0; frame < 5003; ++frame) {
        ASSERT_EQ(wav->samples[2 * frame], static_cast<float>(frame));
        ASSERT_EQ(wav->samples[2 * frame + 1], -static_cast<float>(frame));
    }
}

TEST_F(WavOutputTest, TakesNothingWhileClosedOrPaused) {
    WavOutput device(path_);
    CountingSource source;
    device.advance(10);
    ASSERT_TRUE(device.open(source));
    device.setPaused(true);
    device.advance(10);
    device.setPaused(false);
    device.close();
    device.advance(10);
    EXPECT_EQ(source.frames(), 0U);
}

TEST_F(WavOutputTest, OpeningAgainBeginsTheFileAnew) {
    WavOutput device(path_);
    CountingSource source;
    ASSERT_TRUE(device.open(source));
    device.advance(2000);
    device.close();
    ASSERT_TRUE(device.open(source));
    device.advance(7);
    device.close();
    const auto wav = readWav(path_);
    ASSERT_TRUE(wav);
    EXPECT_EQ(wav->factFrames, 7U);
}

TEST_F(WavOutputTest, AFileThatCannotBeCreatedRefusesToOpen) {
    WavOutput device(path_ + "/below/a/file.wav");
    CountingSource source;
    EXPECT_TRUE(device.ok());
    EXPECT_FALSE(device.open(source));
    EXPECT_FALSE(device.ok());
    EXPECT_THAT(device.error(), HasSubstr("Cannot create"));
}

TEST_F(WavOutputTest, TheMixGoesOnWhenTheDiskIsFull) {
    WavOutput device("/dev/full");
    CountingSource source;
    ASSERT_TRUE(device.open(source));
    device.advance(100'000);
    EXPECT_EQ(source.frames(), 100'000U);
    EXPECT_FALSE(device.ok());
    device.close();
    EXPECT_THAT(device.error(), HasSubstr("No space left"));
}

} // namespace
} // namespace tovik::sound
