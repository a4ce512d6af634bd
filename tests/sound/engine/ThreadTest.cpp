// SPDX-License-Identifier: GPL-3.0-or-later
// Everything at once, with threads: a device that takes the mix as fast as it can, the feeder, the
// keeper and a recorder, while the interface thread starts and stops. The sanitizers judge.
#include "sound/engine/EngineRig.h"
#include "sound/output/FreeRunningOutput.h"

#include <array>
#include <gtest/gtest.h>

namespace tovik::sound {

namespace {

constexpr std::array kFiles = {"mp3_vbr.mp3",   "ogg_48000.ogg", "flac_16_44100.flac",
                               "wma_44100.wma", "song.xm",       "wav_s16_22050_mono.wav"};

/// An engine over a device with a thread of its own, which mixes ahead or not.
class Busy : public testing::TestWithParam<QueueSettings> {
protected:
    Busy()
        : Busy(std::make_unique<FreeRunningOutput>(SimulatedOutput::Settings{
              .blockFrames = 256,
              .latencyFrames = 512,
              .sink = [this](std::span<const float> block) { taken_ += block.size() / 2; },
              .queue = GetParam()})) {}

    Handle play(std::size_t number) {
        const std::string name = kFiles.at(number % kFiles.size());
        const std::string path = test::mediaPath(name);
        Handle channel = engine_.BASS_StreamCreateFile(false, path, 0, 0, BASS_SAMPLE_FX);
        if (channel == kNoHandle) {
            channel = engine_.BASS_MusicLoad(false, path, 0, 0, 0, 0);
        }
        if (channel == kNoHandle) {
            channel = engine_.BASS_WMA_StreamCreateFile(false, path, 0, 0, BASS_SAMPLE_FX);
        }
        if (channel == kNoHandle) {
            channel = engine_.BASS_FLAC_StreamCreateFile(false, path, 0, 0, BASS_SAMPLE_FX);
        }
        EXPECT_NE(channel, kNoHandle) << name;
        EXPECT_TRUE(engine_.BASS_StreamPlay(channel, false, 0) || engine_.BASS_MusicPlay(channel));
        return channel;
    }

    void free(Handle channel) {
        EXPECT_TRUE(engine_.BASS_StreamFree(channel) || engine_.BASS_MusicFree(channel));
    }

    void waitForBlocks(std::size_t frames) {
        const std::size_t until = taken_ + frames;
        EXPECT_TRUE(eventually([&] { return taken_ >= until; }));
    }

    bool init() { return engine_.BASS_Init(1, 44100, 0, 0, 0); }

    /// Whatever a player looks at while a track plays.
    void look(Handle channel) {
        const std::int64_t position = engine_.BASS_ChannelGetPosition(channel);
        const std::int64_t stream = engine_.BASS_StreamGetLength(channel);
        EXPECT_LE(position, stream >= 0 ? stream : engine_.BASS_MusicGetLength(channel, true));
        EXPECT_GE(engine_.BASS_ChannelGetLevel(channel), -1);
        std::array<float, 256> bins{};
        EXPECT_EQ(engine_.BASS_ChannelGetData(channel, bins.data(), BASS_DATA_FFT512), 1024);
        static_cast<void>(engine_.BASS_ChannelIsActive(channel));
    }

private:
    explicit Busy(std::unique_ptr<FreeRunningOutput> owned)
        : device_(*owned),
          made_(std::move(owned), {.observer = &observer_, .keeperTimes = times()}),
          engine_(made_) {}

    static KeeperTimes times() {
        return {.pauseGrace = std::chrono::milliseconds(1),
                .idleClose = std::chrono::milliseconds(2),
                .retry = std::chrono::milliseconds(1)};
    }

    std::atomic<std::size_t> taken_ = 0;
    CountingObserver observer_;

protected:
    FreeRunningOutput& device_;

private:
    Engine made_;

protected:
    SoundLibrary& engine_;
};

} // namespace

TEST_P(Busy, AHundredStartsAndStops) {
    ASSERT_TRUE(init());
    for (std::size_t round = 0; round < 100; ++round) {
        const Handle channel = play(round);
        look(channel);
        if (round % 3 == 0) {
            waitForBlocks(512);
        }
        engine_.BASS_ChannelSetPosition(channel, 40000);
        engine_.BASS_ChannelSetAttributes(channel, -1, 50, -30);
        look(channel);
        if (round % 4 == 0) {
            engine_.BASS_Pause();
            engine_.BASS_ChannelSetPosition(channel, 80000);
            engine_.BASS_Start();
        }
        engine_.BASS_ChannelStop(channel);
        if (round % 2 == 0) {
            free(channel);
        }
        ASSERT_TRUE(engine_.BASS_Free());
        ASSERT_TRUE(init());
    }
    waitForBlocks(0);
}

TEST_P(Busy, CrossfadesWithoutReset) {
    ASSERT_TRUE(init());
    Handle old = play(0);
    for (std::size_t round = 1; round < 60; ++round) {
        const Handle next = play(round);
        engine_.BASS_ChannelSlideAttributes(old, -1, 0, -101, 20);
        engine_.BASS_ChannelSlideAttributes(next, -1, 100, -101, 20);
        const Handle effect = engine_.BASS_ChannelSetFX(next, BASS_FX_PARAMEQ);
        EXPECT_TRUE(engine_.BASS_FXSetParameters(effect, {500.0F, 15.0F, 5.0F}));
        look(next);
        waitForBlocks(256);
        free(old);
        old = next;
    }
}

TEST_P(Busy, RecordingsComeAndGo) {
    ASSERT_TRUE(init());
    const Handle channel = play(0);
    std::atomic<std::size_t> delivered = 0;
    for (int round = 0; round < 20; ++round) {
        ASSERT_TRUE(engine_.BASS_RecordInit(0));
        ASSERT_NE(engine_.BASS_RecordStart(
                      44100, 2,
                      [&](Handle, std::span<const std::int16_t> samples, std::uintptr_t) {
                          delivered += samples.size();
                          return true;
                      },
                      0),
                  kNoHandle);
        waitForBlocks(1024);
        engine_.BASS_ChannelSetPosition(channel, 10000);
        ASSERT_TRUE(engine_.BASS_RecordFree());
    }
    EXPECT_GT(delivered, 0U);
}

TEST_P(Busy, TheDeviceComesAndGoesMeanwhile) {
    ASSERT_TRUE(init());
    for (std::size_t round = 0; round < 30; ++round) {
        const Handle channel = play(round);
        device_.vanish();
        engine_.BASS_ChannelSetPosition(channel, 40000);
        look(channel);
        if (round % 2 == 0) {
            free(channel);
        }
        device_.arrive();
        if (round % 5 == 0) {
            ASSERT_TRUE(engine_.BASS_Free());
            ASSERT_TRUE(init());
        }
    }
    play(0);
    waitForBlocks(1024);
}

TEST_P(Busy, AnEngineEndsInTheMiddleOfEverything) {
    ASSERT_TRUE(init());
    ASSERT_TRUE(engine_.BASS_RecordInit(0));
    const auto routine = [](Handle, std::span<const std::int16_t>, std::uintptr_t) { return true; };
    ASSERT_NE(engine_.BASS_RecordStart(44100, 2, routine, 0), kNoHandle);
    for (std::size_t i = 0; i < kFiles.size(); ++i) {
        play(i);
    }
    waitForBlocks(256);
}

INSTANTIATE_TEST_SUITE_P(Devices, Busy,
                         testing::Values(QueueSettings{}, QueueSettings{.length = 44100,
                                                                        .request = 17640,
                                                                        .margin = 4851}));

} // namespace tovik::sound
