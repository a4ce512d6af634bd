// SPDX-License-Identifier: GPL-3.0-or-later
// The player's ten bands, each alone, against the formula of the filter.
#include "sound/engine/Buffers.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <tuple>

namespace tovik::sound {

namespace {

constexpr std::array kCentres = {60.0F,   170.0F,  310.0F,   600.0F,   1000.0F,
                                 3000.0F, 6000.0F, 12000.0F, 14000.0F, 16000.0F};
constexpr float kBandwidth = 15.0F;
constexpr float kAmplitude = 0.1F;
constexpr std::size_t kSecond = 44100;

/// Band and gain.
class PlayerBand : public testing::TestWithParam<std::tuple<std::size_t, float>> {
protected:
    /// Gives all ten bands to a channel, as the player does, and this one its gain.
    void setBands(SoundLibrary& engine, Handle channel) {
        for (std::size_t band = 0; band < kCentres.size(); ++band) {
            const Handle effect = engine.BASS_ChannelSetFX(channel, BASS_FX_PARAMEQ);
            const float gain = band == std::get<0>(GetParam()) ? std::get<1>(GetParam()) : 0.0F;
            ASSERT_TRUE(engine.BASS_FXSetParameters(effect, {kCentres.at(band), kBandwidth, gain}));
        }
    }

    /// What the engine makes of a sine, in dB, once the filter has settled.
    double measured(double hertz) {
        const std::string path = folder_ / "sine.wav";
        test::writeWav(path, test::sine(hertz, kAmplitude, 2 * kSecond));
        test::EngineRig rig;
        const Handle channel = rig.openStream(path);
        setBands(rig.engine, channel);
        EXPECT_TRUE(rig.start(channel));
        rig.render(kSecond / 2);
        return 20.0 * std::log10(test::effectiveSize(rig.render(kSecond)) /
                                 (static_cast<double>(kAmplitude) / std::sqrt(2.0)));
    }

private:
    test::TemporaryFolder folder_;
};

} // namespace

TEST_P(PlayerBand, FollowsItsFormulaAtEveryCentre) {
    const auto [band, gain] = GetParam();
    const BandCoefficients filter =
        peakingFilter(static_cast<double>(kCentres.at(band)), static_cast<double>(kBandwidth),
                      static_cast<double>(gain), static_cast<double>(kSecond));
    EXPECT_NEAR(measured(static_cast<double>(kCentres.at(band))), static_cast<double>(gain), 0.2);
    for (const float centre : kCentres) {
        const auto hertz = static_cast<double>(centre);
        EXPECT_NEAR(measured(hertz), gainDbAt(filter, hertz, static_cast<double>(kSecond)), 0.2)
            << hertz << " Hz";
    }
}

INSTANTIATE_TEST_SUITE_P(UpAndDown, PlayerBand,
                         testing::Combine(testing::Range(std::size_t{0}, std::size_t{10}),
                                          testing::Values(-12.0F, 12.0F)));

} // namespace tovik::sound
