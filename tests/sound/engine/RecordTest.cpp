// SPDX-License-Identifier: GPL-3.0-or-later
// Recording what the engine plays.
#include "sound/engine/Buffers.h"
#include "sound/mix/ToPcm16.h"

#include <atomic>
#include <gtest/gtest.h>
#include <mutex>

namespace tovik::sound {

namespace {

using test::EngineRig;
using test::kStereo;
using test::Stereo;

/// Keeps what a recording delivers.
class Tape {
public:
    RecordRoutine routine(int deliveries = 1 << 30) {
        return [this, deliveries](Handle, std::span<const std::int16_t> samples, std::uintptr_t) {
            const std::scoped_lock lock(mutex_);
            samples_.insert(samples_.end(), samples.begin(), samples.end());
            return ++deliveries_ < deliveries;
        };
    }

    [[nodiscard]] std::size_t size() {
        const std::scoped_lock lock(mutex_);
        return samples_.size();
    }

    [[nodiscard]] std::vector<std::int16_t> samples() {
        const std::scoped_lock lock(mutex_);
        return samples_;
    }

private:
    std::mutex mutex_;
    std::vector<std::int16_t> samples_;
    int deliveries_ = 0;
};

std::vector<std::int16_t> pcm(const Stereo& sound) {
    std::vector<std::int16_t> result(sound.size());
    toPcm16(sound, result);
    return result;
}

} // namespace

TEST(Record, NeedsInitAndOffersOneInput) {
    EngineRig rig;
    EXPECT_FALSE(rig.engine.BASS_RecordFree());
    EXPECT_EQ(rig.engine.BASS_RecordGetInputName(0), std::nullopt);
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::notInitialized);
    EXPECT_EQ(rig.engine.BASS_RecordStart(44100, 2, {}, 0), kNoHandle);
    EXPECT_FALSE(rig.engine.BASS_RecordSetInput(0x20000));
    EXPECT_FALSE(rig.engine.BASS_RecordInit(1));
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::illegalDevice);
    ASSERT_TRUE(rig.engine.BASS_RecordInit(0));
    EXPECT_FALSE(rig.engine.BASS_RecordInit(0));
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::alreadyInitialized);
    EXPECT_EQ(rig.engine.BASS_RecordGetInputName(0), "Stereo Out");
    EXPECT_EQ(rig.engine.BASS_RecordGetInputName(1), std::nullopt);
    EXPECT_TRUE(rig.engine.BASS_RecordSetInput(0x20000));
    EXPECT_FALSE(rig.engine.BASS_RecordSetInput(0x20001));
    EXPECT_EQ(rig.engine.BASS_RecordStart(48000, 2, {}, 0), kNoHandle);
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::illegalRate);
    EXPECT_EQ(rig.engine.BASS_RecordStart(44100, 1, {}, 0), kNoHandle);
    EXPECT_NE(rig.engine.BASS_RecordStart(44100, 2, {}, 0), kNoHandle);
    EXPECT_TRUE(rig.engine.BASS_RecordFree());
}

TEST(Record, DeliversExactlyTheMix) {
    EngineRig rig;
    Tape tape;
    const Handle channel = rig.play(kStereo);
    rig.engine.BASS_ChannelSetAttributes(channel, -1, 70, 30);
    ASSERT_TRUE(rig.engine.BASS_RecordInit(0));
    ASSERT_NE(rig.engine.BASS_RecordStart(44100, 2, tape.routine(), 0), kNoHandle);
    Stereo mix;
    for (int part = 0; part < 10; ++part) {
        const Stereo now = rig.render(8000);
        mix.insert(mix.end(), now.begin(), now.end());
        // The ring holds a third of a second; the mixer waits for nobody.
        ASSERT_TRUE(eventually([&] { return tape.size() == mix.size(); }));
    }
    const Stereo last = rig.render(700);
    mix.insert(mix.end(), last.begin(), last.end());
    ASSERT_TRUE(rig.engine.BASS_RecordFree());
    EXPECT_EQ(tape.samples(), pcm(mix)) << "also what was mixed just before the end";
    rig.render(8000);
    EXPECT_EQ(tape.size(), mix.size());
}

TEST(Record, AlsoDeliversSilenceWhilePaused) {
    EngineRig rig;
    Tape tape;
    ASSERT_TRUE(rig.engine.BASS_RecordInit(0));
    ASSERT_NE(rig.engine.BASS_RecordStart(44100, 2, tape.routine(), 0), kNoHandle);
    ASSERT_TRUE(rig.engine.BASS_Pause());
    rig.render(4000);
    ASSERT_TRUE(rig.engine.BASS_RecordFree());
    EXPECT_EQ(tape.samples(), std::vector<std::int16_t>(8000, 0));
}

TEST(Record, StopsWhenTheRoutineSaysSo) {
    EngineRig rig;
    Tape tape;
    rig.play(kStereo);
    ASSERT_TRUE(rig.engine.BASS_RecordInit(0));
    ASSERT_NE(rig.engine.BASS_RecordStart(44100, 2, tape.routine(1), 0), kNoHandle);
    rig.render(1000);
    ASSERT_TRUE(eventually([&] { return tape.size() > 0; }));
    const std::size_t taken = tape.size();
    rig.render(40000);
    ASSERT_TRUE(rig.engine.BASS_RecordFree());
    EXPECT_EQ(tape.size(), taken);
}

TEST(Record, TellsHandleAndUser) {
    EngineRig rig;
    ASSERT_TRUE(rig.engine.BASS_RecordInit(0));
    std::atomic<Handle> seen = kNoHandle;
    std::atomic<std::uintptr_t> user = 0;
    const Handle recording = rig.engine.BASS_RecordStart(
        44100, 2,
        [&](Handle handle, std::span<const std::int16_t>, std::uintptr_t value) {
            seen = handle;
            user = value;
            return true;
        },
        77);
    rig.render(1000);
    ASSERT_TRUE(rig.engine.BASS_RecordFree());
    EXPECT_EQ(seen, recording);
    EXPECT_EQ(user, 77U);
}

TEST(Record, AnInputSwitchedOffDeliversNothing) {
    EngineRig rig;
    Tape tape;
    rig.play(kStereo);
    ASSERT_TRUE(rig.engine.BASS_RecordInit(0));
    ASSERT_TRUE(rig.engine.BASS_RecordSetInput(0x10000));
    ASSERT_NE(rig.engine.BASS_RecordStart(44100, 2, tape.routine(), 0), kNoHandle);
    rig.render(2000);
    ASSERT_TRUE(rig.engine.BASS_RecordSetInput(0x20000));
    const Stereo mix = rig.render(2000);
    ASSERT_TRUE(rig.engine.BASS_RecordFree());
    EXPECT_EQ(tape.samples(), pcm(mix));
}

} // namespace tovik::sound
