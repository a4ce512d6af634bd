// SPDX-License-Identifier: GPL-3.0-or-later
// A decoder that is too slow: the sound fades away and comes back, and nothing waits for it.
#include "sound/engine/Buffers.h"
#include "sound/engine/FakeDecoder.h"

#include <chrono>
#include <gtest/gtest.h>
#include <thread>

namespace tovik::sound {

namespace {

using test::FakeFile;
using test::FakeRig;
using test::Stereo;

constexpr float kSample = 0.5F;
constexpr float kRampStep = kSample / 220.0F * 1.02F;

class Starvation : public testing::Test {
protected:
    Starvation() { file_.realFrames = 100 * 44100; }

    ~Starvation() override { release(); }

    Starvation(const Starvation&) = delete;
    Starvation& operator=(const Starvation&) = delete;

    void release() {
        file_.blocked = false;
        file_.blocked.notify_all();
    }

    /// Plays until the feeder is stuck in the decoder and everything decoded before is used up.
    void starve() {
        channel_ = rig_.add(file_);
        EXPECT_TRUE(rig_.streams.BASS_StreamPlay(channel_, false, 0));
        render(3000);
        file_.blocked = true;
        for (int block = 0; block < 1000 && !stalled(); ++block) {
            render(512);
        }
        EXPECT_TRUE(stalled());
        EXPECT_TRUE(eventually([&] { return file_.waiting > 0; }));
    }

    [[nodiscard]] bool stalled() {
        return rig_.channels.BASS_ChannelIsActive(channel_) == Activity::stalled;
    }

    void render(std::size_t frames) {
        const Stereo part = rig_.render(frames);
        mix_.insert(mix_.end(), part.begin(), part.end());
    }

    FakeFile file_;
    FakeRig rig_{FeederMode::ownThread};
    Handle channel_ = kNoHandle;
    Stereo mix_;
};

} // namespace

TEST_F(Starvation, FadesAndRecovers) {
    starve();
    const std::int64_t position = rig_.channels.BASS_ChannelGetPosition(channel_);
    render(2048);
    EXPECT_TRUE(test::silent(test::cut(mix_, mix_.size() / 2 - 1024)));
    EXPECT_GT(rig_.channels.BASS_ChannelGetLevel(channel_), 0) << "a gap is no digital silence";
    EXPECT_EQ(rig_.channels.BASS_ChannelGetPosition(channel_), position) << "it stands";
    release();
    ASSERT_TRUE(eventually([&] {
        render(512);
        return !stalled();
    }));
    render(1024);
    EXPECT_EQ(mix_.back(), kSample);
    EXPECT_LE(test::largestStep(mix_, {kSample, kSample}), kRampStep);
    EXPECT_GT(rig_.channels.BASS_ChannelGetPosition(channel_), position);
}

TEST_F(Starvation, ASecondChannelGoesOn) {
    starve();
    FakeFile other;
    other.realFrames = 4000;
    const Handle second = rig_.add(other);
    ASSERT_TRUE(rig_.streams.BASS_StreamPlay(second, false, 0));
    mix_.clear();
    // Its own thread fills it, which may take a moment.
    for (int turn = 0; turn < 500 && (mix_.empty() || mix_.back() != kSample); ++turn) {
        render(512);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    EXPECT_EQ(mix_.back(), kSample);
    rig_.core.kill(second);
}

TEST_F(Starvation, AChannelMayBeStoppedMeanwhile) {
    starve();
    EXPECT_GT(rig_.streams.BASS_StreamGetLength(channel_), 0);
    ASSERT_TRUE(rig_.channels.BASS_ChannelSetAttributes(channel_, -1, 20, 0));
    ASSERT_TRUE(rig_.outputs.BASS_Pause());
    render(1024);
    ASSERT_TRUE(rig_.outputs.BASS_Start());
    // The read goes on until the end of the test: whoever waits for it hangs here.
    ASSERT_TRUE(rig_.channels.BASS_ChannelStop(channel_));
    EXPECT_EQ(rig_.channels.BASS_ChannelGetPosition(channel_), 0);
    ASSERT_TRUE(rig_.streams.BASS_StreamPlay(channel_, true, 0));
    ASSERT_TRUE(rig_.streams.BASS_StreamFree(channel_));
    EXPECT_EQ(rig_.channels.BASS_ChannelIsActive(channel_), Activity::stopped);
    EXPECT_GT(file_.waiting, 0);
    ASSERT_TRUE(rig_.outputs.BASS_Free());
    ASSERT_TRUE(rig_.outputs.BASS_Init(1, 44100, 0, 0, 0));
}

TEST_F(Starvation, ASeekGoesThereOnceTheDiskIsBack) {
    starve();
    const std::int64_t there = 50 * 44100 * 4;
    ASSERT_TRUE(rig_.channels.BASS_ChannelSetPosition(channel_, 0));
    ASSERT_TRUE(rig_.channels.BASS_ChannelSetPosition(channel_, there));
    EXPECT_EQ(rig_.channels.BASS_ChannelGetPosition(channel_), there);
    render(2048);
    EXPECT_EQ(rig_.channels.BASS_ChannelIsActive(channel_), Activity::stalled);
    EXPECT_EQ(rig_.channels.BASS_ChannelGetPosition(channel_), there) << "it stands";
    EXPECT_GT(file_.waiting, 0);
    release();
    ASSERT_TRUE(eventually([&] {
        render(512);
        return !stalled();
    }));
    render(1024);
    EXPECT_EQ(mix_.back(), kSample);
    EXPECT_LE(test::largestStep(mix_, {kSample, kSample}), kRampStep);
    EXPECT_GT(rig_.channels.BASS_ChannelGetPosition(channel_), there);
}

TEST_F(Starvation, AStartFromWhereNothingWasReadYetIsNoClick) {
    starve();
    release();
    ASSERT_TRUE(eventually([&] {
        render(512);
        return !stalled();
    }));
    render(1024);
    file_.blocked = true;
    ASSERT_TRUE(eventually([&] {
        render(64); // every millisecond, so that enough lies ahead when the feeder reads
        return file_.waiting > 0;
    }));
    ASSERT_EQ(mix_.back(), kSample);
    ASSERT_TRUE(rig_.channels.BASS_ChannelStop(channel_));
    render(1024);
    ASSERT_TRUE(rig_.streams.BASS_StreamPlay(channel_, false, 0));
    mix_.clear();
    render(1024);
    EXPECT_TRUE(test::silent(mix_));
    release();
    ASSERT_TRUE(eventually([&] {
        render(512);
        return !stalled();
    }));
    render(1024);
    EXPECT_EQ(mix_.back(), kSample);
    EXPECT_LE(test::largestStep(mix_, {0.0F, 0.0F}), kRampStep);
}

} // namespace tovik::sound
