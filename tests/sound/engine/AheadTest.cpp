// SPDX-License-Identifier: GPL-3.0-or-later
// An engine over a device that queues a second and hears it later: what is asked is of what is
// heard, and what is told is heard soon.
#include "sound/engine/Buffers.h"
#include "sound/engine/FakeDecoder.h"
#include "sound/mix/ToPcm16.h"

#include <gtest/gtest.h>

namespace tovik::sound {

namespace {

using test::EngineRig;
using test::Stereo;

constexpr const char* kTrack = "wav_s16_44100_stereo.wav";
constexpr std::size_t kMargin = 4851;            // 110 ms
constexpr std::size_t kSoon = kMargin + 512 + 1; // a change begins within this

test::RigSetup queueing() {
    return {.queue = {.length = 44100, .request = 17640, .margin = kMargin}};
}

/// The track as a device without a queue gets it.
Stereo plainly(std::size_t frames) {
    EngineRig rig;
    rig.play(kTrack);
    return rig.render(frames);
}

std::ptrdiff_t firstSound(const Stereo& sound) {
    return std::ranges::find_if(sound, [](float sample) { return sample != 0.0F; }) - sound.begin();
}

/// Plays the track until it is heard from its beginning; what is behind that in `sound`.
Handle playUntilHeard(EngineRig& rig, std::size_t frames, Stereo& sound) {
    const Handle channel = rig.play(kTrack);
    const Stereo all = rig.render(kSoon + frames);
    sound.assign(all.begin() + firstSound(all), all.end());
    return channel;
}

} // namespace

TEST(Ahead, ATrackIsHeardSoonAndBitForBit) {
    EngineRig rig(queueing());
    rig.render(30'000); // the queue is full of silence
    rig.play(kTrack);
    const Stereo sound = rig.render(100'000);
    const std::ptrdiff_t begin = firstSound(sound) / 2;
    EXPECT_GE(begin, static_cast<std::ptrdiff_t>(kMargin));
    EXPECT_LE(begin, static_cast<std::ptrdiff_t>(kSoon));
    const Stereo expected = plainly(90'000);
    const std::ptrdiff_t silent = firstSound(expected);
    EXPECT_TRUE(std::equal(expected.begin() + silent, expected.end(), sound.begin() + 2 * begin));
}

TEST(Ahead, TheFirstFrameOfADeviceThatStoodIsTheFirstOfTheTrack) {
    test::RigSetup setup = queueing();
    setup.opensPaused = true;
    EngineRig rig(setup);
    const Handle channel = rig.open(kTrack);
    EXPECT_FALSE(rig.device.waitFor(DeviceCall::resumed, 1, std::chrono::milliseconds(50)))
        << "it would queue silence";
    ASSERT_TRUE(rig.start(channel));
    ASSERT_TRUE(rig.device.waitFor(DeviceCall::resumed));
    EXPECT_EQ(rig.render(20'000), plainly(20'000));
}

TEST(Ahead, ADeviceRestsWhileAllThatIsOpenWasStopped) {
    test::RigSetup setup = queueing();
    setup.times.pauseGrace = std::chrono::milliseconds(1);
    EngineRig rig(setup);
    const Handle channel = rig.play(kTrack);
    rig.render(20'000);
    ASSERT_EQ(rig.device.count(DeviceCall::paused), 0);
    ASSERT_TRUE(rig.engine.BASS_ChannelStop(channel));
    EXPECT_TRUE(rig.device.waitFor(DeviceCall::paused));
    ASSERT_TRUE(rig.start(channel));
    EXPECT_TRUE(rig.device.waitFor(DeviceCall::resumed));
}

TEST(Ahead, ThePositionIsWhatIsHeard) {
    EngineRig rig(queueing());
    Stereo sound;
    const Handle channel = playUntilHeard(rig, 20'000, sound);
    const Stereo expected = plainly(30'000);
    const auto heard = static_cast<std::ptrdiff_t>(rig.engine.BASS_ChannelGetPosition(channel) / 4);
    ASSERT_GT(heard, 15'000);
    EXPECT_TRUE(std::equal(sound.end() - 2000, sound.end(), expected.begin() + 2 * heard - 2000));
    rig.render(5000);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), (heard + 5000) * 4);
}

TEST(Ahead, TheEndIsTheEndOfWhatIsHeard) {
    EngineRig rig(queueing());
    const Handle channel = rig.play("wav_s16_8000_mono.wav");
    const std::int64_t length = rig.length(channel);
    // 24137 frames at 8000 Hz are 133055 at 44100; the mixer is through with them long before.
    rig.render(133'000);
    EXPECT_LT(rig.engine.BASS_ChannelGetPosition(channel), length);
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(channel), Activity::playing);
    rig.render(56);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), length);
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(channel), Activity::stopped);
}

TEST(Ahead, AVolumeIsHeardSoonAndNotBefore) {
    EngineRig rig(queueing());
    Stereo sound;
    const Handle channel = playUntilHeard(rig, 20'000, sound);
    const auto heard = static_cast<std::size_t>(rig.engine.BASS_ChannelGetPosition(channel) / 4);
    const Stereo expected = plainly(60'000);
    ASSERT_TRUE(rig.engine.BASS_ChannelSetAttributes(channel, -1, 50, -101));
    const Stereo after = rig.render(20'000);
    EXPECT_TRUE(std::equal(after.begin(), after.begin() + 2 * kMargin,
                           expected.begin() + static_cast<std::ptrdiff_t>(2 * heard)));
    for (std::size_t i = 2 * (kSoon + 220); i < after.size(); ++i) {
        ASSERT_EQ(after[i], expected[2 * heard + i] * 0.5F) << i;
    }
}

TEST(Ahead, ASeekIsHeardSoonAndThePositionCountsFromThere) {
    EngineRig rig(queueing());
    Stereo sound;
    const Handle channel = playUntilHeard(rig, 20'000, sound);
    ASSERT_TRUE(rig.engine.BASS_ChannelSetPosition(channel, 50'000 * 4));
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), 50'000 * 4);
    const Stereo after = rig.render(20'000);
    const auto heard = static_cast<std::ptrdiff_t>(rig.engine.BASS_ChannelGetPosition(channel) / 4);
    EXPECT_GE(heard, static_cast<std::ptrdiff_t>(70'000 - kSoon));
    EXPECT_LE(heard, static_cast<std::ptrdiff_t>(70'000 - kMargin));
    const Stereo expected = plainly(80'000);
    EXPECT_TRUE(
        std::equal(after.end() - 20'000, after.end(), expected.begin() + 2 * heard - 20'000));
}

TEST(Ahead, LevelAndSlideAreOfWhatIsHeard) {
    EngineRig rig(queueing());
    Stereo sound;
    const Handle channel = playUntilHeard(rig, 5000, sound);
    EXPECT_GT(rig.engine.BASS_ChannelGetLevel(channel), 0);
    ASSERT_TRUE(rig.engine.BASS_ChannelSlideAttributes(channel, -1, 0, -101, 1000));
    int frequency = 0;
    int volume = 0;
    int pan = 0;
    rig.render(kMargin / 2);
    ASSERT_TRUE(rig.engine.BASS_ChannelGetAttributes(channel, frequency, volume, pan));
    EXPECT_EQ(volume, 100) << "the slide has not been heard yet";
    rig.render(kMargin / 2 + 22'050);
    ASSERT_TRUE(rig.engine.BASS_ChannelGetAttributes(channel, frequency, volume, pan));
    EXPECT_NEAR(volume, 50, 3);
}

TEST(Ahead, APauseIsARampAndTheSoundGoesOnWhereItStopped) {
    EngineRig rig(queueing());
    Stereo sound;
    const Handle channel = playUntilHeard(rig, 20'000, sound);
    ASSERT_TRUE(rig.engine.BASS_Pause());
    const Stereo fading = rig.render(10'000);
    EXPECT_EQ(fading.back(), 0.0F);
    const std::int64_t stands = rig.engine.BASS_ChannelGetPosition(channel);
    rig.render(10'000);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), stands);
    ASSERT_TRUE(rig.engine.BASS_Start());
    const Stereo after = rig.render(20'000);
    const std::int64_t heard = rig.engine.BASS_ChannelGetPosition(channel);
    EXPECT_GE(heard - stands, static_cast<std::int64_t>(20'000 - kSoon) * 4);
    const Stereo expected = plainly(60'000);
    EXPECT_TRUE(std::equal(after.end() - 10'000, after.end(),
                           expected.begin() + static_cast<std::ptrdiff_t>(heard / 2) - 10'000));
    const auto largest = [](const Stereo& part) {
        return test::largestStep(part, {part[0], part[1]});
    };
    EXPECT_LE(largest(after), largest(expected) + 1.0F / 220.0F);
}

TEST(Ahead, AfterALossTheSoundGoesOnWithWhatWasNotHeard) {
    test::RigSetup setup = queueing();
    setup.times.retry = std::chrono::milliseconds(1);
    EngineRig rig(setup);
    Stereo sound;
    const Handle channel = playUntilHeard(rig, 20'000, sound);
    const std::int64_t before = rig.engine.BASS_ChannelGetPosition(channel);
    rig.device.vanish();
    rig.device.arrive();
    ASSERT_TRUE(eventually([&] { return rig.observer.back == 1; }));
    const std::int64_t after = rig.engine.BASS_ChannelGetPosition(channel);
    EXPECT_GE(after, before);
    EXPECT_LE(after, before + 512 * 4);
    const Stereo again = rig.render(10'000);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(channel), after + 10'000 * 4);
    const Stereo expected = plainly(40'000);
    EXPECT_TRUE(std::equal(again.end() - 10'000, again.end(),
                           expected.begin() + static_cast<std::ptrdiff_t>(after / 2) + 10'000));
}

TEST(Ahead, ASpectrumIsOfWhatIsHeardAndBeginsSoon) {
    EngineRig rig(queueing());
    Stereo sound;
    const Handle channel = playUntilHeard(rig, 20'000, sound);
    std::array<float, 256> bins{};
    ASSERT_EQ(rig.engine.BASS_ChannelGetData(channel, bins.data(), BASS_DATA_FFT512), 1024);
    EXPECT_EQ(std::ranges::count(bins, 0.0F), 256) << "nobody had looked";
    rig.render(kSoon + 512);
    ASSERT_EQ(rig.engine.BASS_ChannelGetData(channel, bins.data(), BASS_DATA_FFT512), 1024);
    const std::int64_t heard = rig.engine.BASS_ChannelGetPosition(channel) / 4;

    EngineRig plain;
    const Handle same = plain.play(kTrack);
    std::array<float, 256> expected{};
    plain.render(static_cast<std::size_t>(heard) - 600);
    plain.engine.BASS_ChannelGetData(same, expected.data(), BASS_DATA_FFT512);
    plain.render(600);
    plain.engine.BASS_ChannelGetData(same, expected.data(), BASS_DATA_FFT512);
    EXPECT_EQ(bins, expected);
    EXPECT_LT(std::ranges::count(bins, 0.0F), 200);
}

TEST(Ahead, ARecordingIsWhatIsHeard) {
    EngineRig rig(queueing());
    std::mutex mutex;
    std::vector<std::int16_t> tape;
    ASSERT_TRUE(rig.engine.BASS_RecordInit(0));
    ASSERT_NE(rig.engine.BASS_RecordStart(
                  44100, 2,
                  [&](Handle, std::span<const std::int16_t> samples, std::uintptr_t) {
                      const std::scoped_lock lock(mutex);
                      tape.insert(tape.end(), samples.begin(), samples.end());
                      return true;
                  },
                  0),
              kNoHandle);
    const Handle channel = rig.play(kTrack);
    Stereo heard;
    for (int step = 0; step < 20; ++step) {
        ASSERT_TRUE(rig.engine.BASS_ChannelSetAttributes(channel, -1, 100 - 3 * step, -101));
        const Stereo part = rig.render(3000);
        heard.insert(heard.end(), part.begin(), part.end());
    }
    ASSERT_TRUE(rig.engine.BASS_RecordFree());
    std::vector<std::int16_t> expected(heard.size());
    toPcm16(heard, expected);
    // It began with the first block that could be changed, and ends a little behind what is heard.
    const std::size_t sounds = static_cast<std::size_t>(
        std::ranges::find_if(tape, [](std::int16_t s) { return s != 0; }) - tape.begin());
    const std::size_t begin = static_cast<std::size_t>(firstSound(heard)) - sounds;
    ASSERT_GE(tape.size(), expected.size() - begin);
    EXPECT_TRUE(std::equal(expected.begin() + static_cast<std::ptrdiff_t>(begin), expected.end(),
                           tape.begin()));
}

} // namespace tovik::sound
