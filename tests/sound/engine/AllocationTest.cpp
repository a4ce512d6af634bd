// SPDX-License-Identifier: GPL-3.0-or-later
// The callback allocates nothing: the allocations of the thread that mixes are counted.
#include "sound/engine/EngineRig.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <new>

namespace {

// Only what the marked thread does between the marks counts.
thread_local bool counting = false;
thread_local int allocations = 0;
thread_local int releases = 0;

} // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    if (counting) {
        ++allocations;
    }
    return std::malloc(size != 0 ? size : 1);
}

void* operator new(std::size_t size) {
    if (void* memory = operator new(size, std::nothrow)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    if (counting) {
        ++releases;
    }
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}

namespace tovik::sound {

namespace {

/// What one callback allocates and releases.
int callback(test::EngineRig& rig) {
    allocations = releases = 0;
    counting = true;
    rig.device.advance(512);
    counting = false;
    return allocations + releases;
}

} // namespace

TEST(Allocation, TheCountCounts) {
    counting = true;
    const auto number = std::make_unique<int>(7);
    counting = false;
    EXPECT_GT(allocations, 0);
    EXPECT_EQ(*number, 7);
}

TEST(Allocation, ACallbackMakesNone) {
    // Decoding happens in a thread, so the stepping thread only mixes.
    test::EngineRig rig({.feeder = FeederMode::ownThread, .keepSamples = false});
    for (int round = 0; round < 20; ++round) {
        const Handle first = rig.play("mp3_vbr.mp3");
        const Handle second = rig.play("song.xm");
        const Handle effect = rig.engine.BASS_ChannelSetFX(first, BASS_FX_PARAMEQ);
        rig.engine.BASS_FXSetParameters(effect, {1000.0F, 15.0F, 5.0F});
        rig.engine.BASS_ChannelSlideAttributes(second, -1, 10, 50, 5);
        EXPECT_EQ(callback(rig), 0);
        rig.engine.BASS_ChannelSetPosition(first, 40000);
        rig.engine.BASS_ChannelSetPosition(first, 80000);
        EXPECT_EQ(callback(rig), 0);
        rig.engine.BASS_ChannelStop(second);
        rig.engine.BASS_StreamFree(first);
        EXPECT_EQ(callback(rig), 0);
        rig.engine.BASS_Pause();
        rig.engine.BASS_MusicFree(second);
        EXPECT_EQ(callback(rig), 0);
        rig.engine.BASS_Free();
        rig.init();
    }
}

} // namespace tovik::sound
