// SPDX-License-Identifier: GPL-3.0-or-later
#include "vis/modSpectrum.h"

#include "player/PlayerRig.h"
#include "vis/NotedArea.h"

namespace tovik::test {
namespace {

class ModSpectrum : public PlayerRig {
protected:
    static constexpr int kSpeedMs = 40;

    ModSpectrum() {
        state_.PrimaryChannel = kFirst;
        state_.SecondaryChannel = kSecond;
        state_.ActiveChannel = player::ChannelSlot::primary;
        state_.IsPlaying = true;
        sound_.spectra[kFirst].fill(1);
        sound_.spectra[kSecond].fill(0);
        spectrum_.setSpeed(kSpeedMs);
    }

    /// How often the sound was asked in that time.
    int reads(std::int64_t milliseconds) {
        const int before = sound_.spectraRead;
        advance(milliseconds);
        return sound_.spectraRead - before;
    }

    static constexpr sound::Handle kFirst = 101;
    static constexpr sound::Handle kSecond = 102;

    NotedArea area_;
    vis::modSpectrum spectrum_{core_, host_.clock, area_};
};

TEST_F(ModSpectrum, ticksAtItsSpeedFromTheStartOn) {
    EXPECT_EQ(reads(400), 0);
    spectrum_.StartSpectrum();
    EXPECT_EQ(reads(400), 10);
    EXPECT_GT(area_.drawn, 3);
    EXPECT_GT(spectrum_.data().bands[0], 0.99F);
    spectrum_.StopSpectrum();
    EXPECT_EQ(area_.cleared, 1);
    EXPECT_EQ(reads(400), 0);
    EXPECT_TRUE(spectrum_.rests());
}

TEST_F(ModSpectrum, speedsOutsideTheBoundsCountAsTheNearerOne) {
    for (const auto& [speed, ticks] :
         {std::pair(9, 100), std::pair(-5, 100), std::pair(10, 100), std::pair(501, 2),
          std::pair(32767, 2), std::pair(500, 2), std::pair(100, 10), std::pair(0, 0)}) {
        spectrum_.setSpeed(speed);
        spectrum_.StartSpectrum();
        EXPECT_EQ(reads(1000), ticks) << speed;
    }
    // A change counts at once.
    spectrum_.setSpeed(kSpeedMs);
    EXPECT_EQ(reads(400), 10);
}

TEST_F(ModSpectrum, followsTheChannelThatIsHeard) {
    spectrum_.StartSpectrum();
    advance(kSpeedMs);
    EXPECT_EQ(spectrum_.data().FFT[9], 1);
    state_.ActiveChannel = player::ChannelSlot::secondary;
    advance(kSpeedMs);
    EXPECT_EQ(spectrum_.data().FFT[9], 0);
    state_.ActiveChannel = player::ChannelSlot::none;
    state_.CrossfadeLeg = 2;
    advance(kSpeedMs);
    EXPECT_EQ(spectrum_.data().FFT[9], 1);
    state_.CrossfadeLeg = 1;
    advance(kSpeedMs);
    EXPECT_EQ(spectrum_.data().FFT[9], 0);
}

TEST_F(ModSpectrum, withoutAChannelWhatWasHeardLastStands) {
    spectrum_.StartSpectrum();
    advance(kSpeedMs);
    state_.ActiveChannel = player::ChannelSlot::none;
    state_.CrossfadeLeg = 0;
    advance(10 * kSpeedMs);
    EXPECT_EQ(spectrum_.data().FFT[9], 1);
    EXPECT_GT(spectrum_.data().bands[0], 0.99F);
}

TEST_F(ModSpectrum, restsWhilePausedAndStopped) {
    spectrum_.StartSpectrum();
    advance(400);
    state_.IsPaused = true;
    const auto bands = spectrum_.data().bands;
    EXPECT_EQ(reads(400), 0);
    EXPECT_TRUE(spectrum_.rests());
    EXPECT_EQ(spectrum_.data().bands, bands);
    spectrum_.stir();
    EXPECT_TRUE(spectrum_.rests());
    state_.IsPaused = false;
    spectrum_.stir();
    EXPECT_EQ(reads(400), 10);
    state_.IsPlaying = false;
    EXPECT_EQ(reads(400), 0);
    EXPECT_TRUE(spectrum_.rests());
    spectrum_.StartSpectrum();
    EXPECT_TRUE(spectrum_.rests());
}

TEST_F(ModSpectrum, restsWhileNobodyCanSeeIt) {
    spectrum_.StartSpectrum();
    area_.seen = false;
    EXPECT_EQ(reads(1000), 0);
    EXPECT_TRUE(spectrum_.rests());
    area_.seen = true;
    spectrum_.stir();
    EXPECT_EQ(reads(400), 10);
    // Being stirred meanwhile does not upset the rhythm.
    for (int i = 0; i < 10; ++i) {
        spectrum_.stir();
        EXPECT_EQ(reads(20), i % 2);
    }
}

TEST_F(ModSpectrum, isNotStirredWhenItWasStopped) {
    spectrum_.StartSpectrum();
    spectrum_.StopSpectrum();
    spectrum_.stir();
    EXPECT_TRUE(spectrum_.rests());
}

TEST_F(ModSpectrum, restsWhenTheSoundIsOverAndTheLastMarkHasFallen) {
    spectrum_.StartSpectrum();
    advance(1000);
    sound_.spectra[kFirst].fill(0);
    advance(30'000);
    EXPECT_TRUE(spectrum_.rests());
    for (const std::uint32_t pixel : area_.picture.pixels) {
        ASSERT_EQ(pixel, 0xFF000000U);
    }
    spectrum_.stir();
    EXPECT_FALSE(spectrum_.rests());
}

TEST_F(ModSpectrum, silenceOfATrackThatPlaysIsListenedToAndNotDrawn) {
    const std::string path = track("a.mp3", {.seconds = 600});
    ASSERT_TRUE(burn(path));
    const sound::Handle handle = state_.PrimaryChannel;
    sound_.spectra[handle].fill(0);
    spectrum_.StartSpectrum();
    advance(1000);
    const int drawn = area_.drawn;
    EXPECT_EQ(reads(20'000), 500);
    EXPECT_EQ(area_.drawn, drawn);
    sound_.spectra[handle].fill(0.5F);
    advance(100);
    EXPECT_GT(area_.drawn, drawn);
}

TEST_F(ModSpectrum, goesOnInAnotherArea) {
    spectrum_.StartSpectrum();
    advance(1000);
    NotedArea other;
    other.seen = false;
    spectrum_.drawIn(other);
    const int drawn = area_.drawn;
    EXPECT_EQ(reads(400), 0); // it cannot be seen yet
    other.seen = true;
    spectrum_.stir();
    EXPECT_EQ(reads(400), 10);
    EXPECT_EQ(area_.drawn, drawn);
    EXPECT_EQ(area_.cleared, 0);
    EXPECT_EQ(other.picture.pixels[0], 0xFF000000U);
    spectrum_.drawIn(area_);
    EXPECT_EQ(reads(400), 10);
    EXPECT_GT(area_.drawn, drawn);
}

TEST_F(ModSpectrum, aStartDrawsTheWholeAreaAnew) {
    spectrum_.StartSpectrum();
    advance(2000);
    area_.picture.pixels.assign(166 * 24, 0);
    spectrum_.StartSpectrum();
    advance(kSpeedMs);
    EXPECT_EQ(area_.picture.pixels[0], 0xFF000000U);
}

TEST_F(ModSpectrum, withComfortBarsAndMarksFallAlikeAtAnySpeed) {
    state_.comfort.levelsInDecibels = true;
    state_.comfort.fallsByTime = true;
    for (const int speed : {67, 40, 17}) { // 15, 25 and 60 pictures a second
        spectrum_.setSpeed(speed);
        sound_.spectra[kFirst].fill(1);
        spectrum_.StartSpectrum();
        advance(1000);
        ASSERT_EQ(spectrum_.data().bands[0], 1) << speed;
        ASSERT_EQ(spectrum_.data().peaks[0], 1) << speed;
        sound_.spectra[kFirst].fill(0);
        const int before = sound_.spectraRead;
        advance(450);
        const int ticks = sound_.spectraRead - before;
        ASSERT_GE(ticks, 450 / speed) << speed;
        // Each tick stands for its whole interval.
        const double passed = ticks * speed / 1000.0;
        EXPECT_NEAR(double{spectrum_.data().bands[0]}, 1 - passed * 4 / 3, 1e-4) << speed;
        EXPECT_NEAR(double{spectrum_.data().peaks[0]}, 1 - passed / 3, 1e-4) << speed;
        EXPECT_NEAR(passed, 0.45, 0.067) << speed;
        advance(600);
        EXPECT_EQ(spectrum_.data().bands[0], 0) << speed;
        EXPECT_GT(spectrum_.data().peaks[0], 0.6F) << speed;
        advance(2500);
        EXPECT_EQ(spectrum_.data().peaks[0], 0) << speed;
    }
}

TEST_F(ModSpectrum, withComfortAPauseIsNoTimeInWhichBarsFall) {
    state_.comfort.levelsInDecibels = true;
    state_.comfort.fallsByTime = true;
    spectrum_.StartSpectrum();
    advance(400);
    sound_.spectra[kFirst].fill(0);
    state_.IsPaused = true;
    advance(5000);
    ASSERT_TRUE(spectrum_.rests());
    EXPECT_EQ(spectrum_.data().bands[0], 1);
    state_.IsPaused = false;
    spectrum_.stir();
    advance(kSpeedMs);
    EXPECT_EQ(spectrum_.data().bands[0], 1) << "the first tick stands for no time";
    advance(kSpeedMs);
    EXPECT_NEAR(double{spectrum_.data().bands[0]}, 1 - 0.04 * 4 / 3, 1e-4);
}

} // namespace
} // namespace tovik::test
