// SPDX-License-Identifier: GPL-3.0-or-later
// What is heard where one track follows another, compared with the samples of the tracks.
#include "app/RenderRig.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace tovik::test {
namespace {

/// A ramp of as many frames differs by one step of it, depending on where it begins; the rest is
/// the rounding of sums.
float rampError(double fadeSeconds) {
    return static_cast<float>(0.4 / (fadeSeconds * kFramesASecond)) + 1e-6F;
}

/// What ramps where nothing is to slide: 5 ms.
constexpr double kQuickRamp = 220.0 / kFramesASecond;

class Fades : public RenderRig, public testing::WithParamInterface<int> {};

TEST_P(Fades, theOldTrackFallsAndTheNewOneStartsInFull) {
    const int seconds = GetParam();
    set("CFD", "1");
    set("CFDT", std::to_string(seconds));
    const Samples first = noise(20, 1);
    const Samples second = noise(16, 2);
    start({wav("1.wav", first), wav("2.wav", second)});
    renderTo(4);
    player().music().playback.advance.button_next();
    renderTo(20);
    const double fade = seconds == 0 ? kQuickRamp : seconds;
    Samples expected;
    addFading(expected, first, 0, 4, fade);
    add(expected, second, 4);
    const Samples mix = finish();
    EXPECT_EQ(mix.size(), 2 * 20 * kFramesASecond);
    EXPECT_LE(largestDifference(mix, expected), rampError(fade));
}

INSTANTIATE_TEST_SUITE_P(OfSeconds, Fades, testing::Values(0, 3, 10));

/// A file of the generated media.
std::string media(const std::string& name) {
    const char* const folder = std::getenv("TOVIK_MEDIA");
    return folder == nullptr ? name : std::string(folder) + "/" + name;
}

class Transition : public RenderRig {
protected:
    /// What a file sounds like on its own.
    Samples alone(const std::string& path, double seconds) {
        start({path});
        renderTo(seconds);
        return finish();
    }
};

class OtherFormats : public Transition, public testing::WithParamInterface<const char*> {};

TEST_P(OtherFormats, fadeAlike) {
    const std::string other = media(GetParam());
    const Samples otherAlone = alone(other, 3);
    set("CFD", "1");
    set("CFDT", "2");
    const Samples first = noise(8, 1);
    start({wav("1.wav", first), other});
    renderTo(1);
    player().music().playback.advance.button_next();
    renderTo(3.5);
    Samples expected;
    addFading(expected, first, 0, 1, 2);
    add(expected, otherAlone, 1);
    const Samples mix = finish();
    EXPECT_EQ(mix.size(), 2 * 7 * kFramesASecond / 2);
    EXPECT_LE(largestDifference(mix, expected), rampError(2));
}

INSTANTIATE_TEST_SUITE_P(All, OtherFormats,
                         testing::Values("wav_s16_48000_stereo.wav", "flac_24_48000.flac",
                                         "mp3_22050.mp3", "ogg_48000.ogg", "wav_s24_96000_mono.wav",
                                         "wma_44100.wma", "song.xm"));

TEST_F(Transition, stopSilencesAModule) {
    start({media("song.xm")});
    renderTo(2);
    player().music().playback.transport.button_stop();
    renderTo(4);
    const Samples mix = finish();
    EXPECT_GT(silentFrames(mix, 2.1), kFramesASecond * 18 / 10);
    EXPECT_LT(silentFrames(mix, 1), kFramesASecond / 2) << "it sounded before";
}

TEST_F(Transition, afterACrossfadeOfNoTimeSilenceSkipCounts) {
    set("CFD", "1");
    set("CFDT", "0");
    set("SLDT", "0");
    start({wav("1.wav", noise(9, 1)), wav("2.wav", joined(noise(1, 2), silence(8))),
           wav("3.wav", noise(9, 3))});
    player().music().playback.silenceSkip.button_sld();
    renderTo(1);
    player().music().playback.advance.button_next();
    renderTo(4);
    EXPECT_EQ(player().stdSS().SelectedIndex, 3);
    EXPECT_EQ(silentFrames(finish(), 2), kFramesASecond);
}

TEST_F(Transition, aCrossfadeKeepsTheBalance) {
    set("CFD", "1");
    set("CFDT", "1");
    set("BLV", "100");
    const Samples second = noise(3, 2);
    start({wav("1.wav", noise(4, 1)), wav("2.wav", second)});
    renderTo(1);
    player().music().playback.advance.button_next();
    renderTo(3.5);
    const Samples mix = finish();
    float left = 0;
    float right = 0;
    for (std::size_t frame = 5 * kFramesASecond / 2; frame < 3 * kFramesASecond; ++frame) {
        left = std::max(left, std::abs(mix[2 * frame]));
        right = std::max(right, std::abs(mix[2 * frame + 1]));
    }
    EXPECT_EQ(left, 0);
    EXPECT_GT(right, 0.3F);
}

TEST_F(Transition, aFadeOutOfNoTimeStopsAtOnce) {
    set("CFDT", "0");
    start({wav("1.wav", noise(10, 1))});
    renderTo(2);
    player().music().playback.fadeOut.FadeOutTrack();
    EXPECT_FALSE(player().state().IsPlaying);
    renderTo(3);
    EXPECT_GT(silentFrames(finish(), 2.01), kFramesASecond * 9 / 10);
}

TEST_F(Transition, aFadeOutFallsToSilence) {
    set("CFDT", "3");
    const Samples track = noise(10, 1);
    start({wav("1.wav", track)});
    renderTo(2);
    player().music().playback.fadeOut.FadeOutTrack();
    renderTo(8);
    EXPECT_FALSE(player().state().IsPlaying);
    Samples expected;
    addFading(expected, track, 0, 2, 3);
    const Samples mix = finish();
    EXPECT_LE(largestDifference(mix, expected), rampError(3));
    EXPECT_EQ(silentFrames(mix, 5), 3 * kFramesASecond);
}

TEST_F(Transition, aSecondFadeCutsTheFirstOff) {
    set("CFD", "1");
    set("CFDT", "5");
    const Samples tracks[] = {noise(9, 1), noise(9, 2), noise(9, 3)};
    start({wav("1.wav", tracks[0]), wav("2.wav", tracks[1]), wav("3.wav", tracks[2])});
    renderTo(1);
    player().music().playback.advance.button_next();
    renderTo(2);
    player().music().playback.advance.button_next();
    renderTo(8);
    // The first track is gone 5 ms after the second fade began.
    Samples expected;
    addFading(expected, tracks[1], 1, 2, 5);
    add(expected, tracks[2], 2);
    const Samples mix = finish();
    const auto from = static_cast<std::ptrdiff_t>(2 * (2 * kFramesASecond + 221));
    EXPECT_LE(largestDifference(Samples(mix.begin() + from, mix.end()),
                                Samples(expected.begin() + from, expected.end())),
              rampError(5));
}

/// Seconds from the start of a track of `length` seconds to that of the next one: the first whole
/// second at which the rounded position is at least 99.5 percent of the rounded length.
double changesAfter(double length) {
    const double whole = std::nearbyint(length);
    for (int second = 1;; ++second) {
        const double position = std::nearbyint(std::min<double>(second, length));
        if (std::nearbyint(position / whole * 100) >= 100) {
            return second;
        }
    }
}

class Gaps : public Transition, public testing::WithParamInterface<double> {};

TEST_P(Gaps, areWhatPollingLeaves) {
    const double length = GetParam();
    const double change = changesAfter(length);
    const Samples second = noise(1, 2);
    start({wav("1.wav", noise(length, 1)), wav("2.wav", second)});
    renderTo(change + 0.5);
    const Samples mix = finish();
    const double gap = std::max(change - length, 0.0);
    EXPECT_EQ(silentFrames(mix, change - gap), std::llround(gap * kFramesASecond));
    // The next track is there from its first sample on, once the one before is ramped off.
    const auto from = static_cast<std::ptrdiff_t>(2 * (change * kFramesASecond + 221));
    const Samples heard(mix.begin() + from, mix.end());
    EXPECT_LE(largestDifference(heard, Samples(second.begin() + 2 * 221, second.end())), 1e-6F);
}

INSTANTIATE_TEST_SUITE_P(OfSeconds, Gaps,
                         testing::Values(1.0, 1.6, 2.0, 2.3, 2.5, 2.7, 3.5, 3.9, 200.0, 200.7));

TEST_F(Transition, aLongTrackThatFadesLeavesNoSilence) {
    set("CFD", "1");
    set("CFDT", "3");
    start({wav("1.wav", noise(200.7, 1)), wav("2.wav", noise(5, 2))});
    renderTo(203);
    const Samples mix = finish();
    std::size_t silent = 0;
    for (std::size_t i = 0; i < mix.size(); i += 2) {
        silent += mix[i] == 0 && mix[i + 1] == 0 ? 1U : 0U;
    }
    EXPECT_EQ(silent, 0U);
    EXPECT_EQ(player().stdSS().SelectedIndex, 2);
}

TEST_F(Transition, silenceMovesOnAfterASecond) {
    const Samples second = noise(3, 2);
    set("SLDT", "50");
    start({wav("1.wav", joined(noise(2, 1), silence(20))), wav("2.wav", second)});
    player().music().playback.silenceSkip.button_sld();
    renderTo(5);
    const Samples mix = finish();
    EXPECT_EQ(silentFrames(mix, 2), kFramesASecond);
    const auto from = static_cast<std::ptrdiff_t>(2 * 3 * kFramesASecond);
    EXPECT_EQ(largestDifference(Samples(mix.begin() + from, mix.end()), second), 0);
}

TEST_F(Transition, silenceAtTheStartSkipsATrack) {
    set("SLDT", "0");
    start({wav("1.wav", joined(silence(1.5), noise(20, 1))), wav("2.wav", noise(3, 2))});
    player().music().playback.silenceSkip.button_sld();
    renderTo(2);
    EXPECT_EQ(silentFrames(finish(), 0), kFramesASecond);
    EXPECT_EQ(player().stdSS().SelectedIndex, 2);
}

TEST_F(Transition, above50SilenceIsHeardOut) {
    set("SLDT", "51");
    start({wav("1.wav", joined(noise(2, 1), silence(8))), wav("2.wav", noise(3, 2))});
    player().music().playback.silenceSkip.button_sld();
    renderTo(11);
    EXPECT_EQ(silentFrames(finish(), 2), 8 * kFramesASecond);
}

TEST_F(Transition, theTailOfAFadeIsNoSilence) {
    set("CFD", "1");
    set("CFDT", "4");
    start({wav("1.wav", noise(9, 1)), wav("2.wav", joined(silence(6), noise(5, 2))),
           wav("3.wav", noise(5, 3))});
    player().music().playback.silenceSkip.button_sld();
    renderTo(1);
    player().music().playback.advance.button_next();
    renderTo(5.9);
    EXPECT_EQ(player().stdSS().SelectedIndex, 2);
    renderTo(6.2);
    EXPECT_EQ(player().stdSS().SelectedIndex, 3);
}

TEST_F(Transition, movesOfVolumeAndBalanceMakeNoClick) {
    constexpr float kLevel = 0.4F;
    start({wav("1.wav", Samples(2 * 10 * kFramesASecond, kLevel))});
    ui::WindowInput& input = player().input();
    double now = 1;
    renderTo(now);
    for (const std::size_t lamp : {0U, 8U, 2U}) {
        ui::PointerEvent event;
        event.element = ui::addressOf(window::MainElement::balbar, lamp);
        event.button = ui::MouseButton::Left;
        input.mouseDown(event);
        input.mouseUp(event);
        renderTo(now += 0.25);
        // Also centres the balance.
        input.wheel({}, lamp == 0 ? -20 : 10);
        renderTo(now += 0.25);
    }
    const Samples mix = finish();
    float step = 0;
    float least = kLevel;
    // The beginning of the track is a step of its own.
    for (std::size_t i = kFramesASecond; i + 2 < mix.size(); ++i) {
        step = std::max(step, std::abs(mix[i + 2] - mix[i]));
        least = std::min(least, mix[i]);
    }
    // Volume and balance ramp in 5 ms each, and can do so at once.
    EXPECT_LE(step, 2.02F * kLevel / 220);
    EXPECT_GT(step, 0.9F * kLevel / 221) << "it was moved all the way";
    EXPECT_EQ(least, 0);
    EXPECT_EQ(*std::ranges::max_element(mix), kLevel) << "nothing is louder than the track";
}

} // namespace
} // namespace tovik::test
