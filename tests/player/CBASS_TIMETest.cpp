// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/CBASS_TIME.h"

#include "base/RuntimeError.h"
#include "support/sound/FakeSoundLibrary.h"

#include <gtest/gtest.h>

namespace tovik::test {
namespace {

using player::CBASS_TIME;

constexpr sound::Handle kDead = 99;

class Times : public testing::Test {
protected:
    Times() { static_cast<void>(sound_.BASS_Init(1, 44100, 0, 0, 0)); }

    sound::Handle open(const FakeFile& file) {
        sound_.files["f"] = file;
        return file.kind == FakeKind::music ? sound_.BASS_MusicLoad(false, "f", 0, 0, 0, 0)
                                            : sound_.BASS_StreamCreateFile(false, "f", 0, 0, 0);
    }

    template <typename Operation>
    static int raised(const Operation& operation) {
        try {
            static_cast<void>(operation());
            return 0;
        } catch (const base::RuntimeError& error) {
            return error.number();
        }
    }

    FakeSoundLibrary sound_;
    CBASS_TIME time_{sound_};
};

TEST_F(Times, textsOfSeconds) {
    EXPECT_EQ(CBASS_TIME::GetTime(-1), "00:00:00");
    EXPECT_EQ(CBASS_TIME::GetTime(0), "00:00:00");
    EXPECT_EQ(CBASS_TIME::GetTime(59), "00:00:59");
    EXPECT_EQ(CBASS_TIME::GetTime(3600), "01:00:00");
    EXPECT_EQ(CBASS_TIME::GetTime(45296), "12:34:56");
    EXPECT_EQ(CBASS_TIME::GetSeconds("12:34:56"), 45296);
}

TEST_F(Times, thePositionIsRoundedWithHalvesToEven) {
    const sound::Handle channel = open({.seconds = 100});
    for (const auto& [exact, whole] :
         {std::pair{0.0, 0}, {1.49, 1}, {1.5, 2}, {2.5, 2}, {3.5, 4}}) {
        sound_.setSeconds(channel, exact);
        EXPECT_EQ(time_.GetPlayingPos(channel), whole) << exact;
    }
}

TEST_F(Times, aPositionBeyond16BitsOverflows) {
    const sound::Handle channel = open({.seconds = 40000});
    sound_.setSeconds(channel, 32767.4);
    EXPECT_EQ(time_.GetPlayingPos(channel), 32767);
    sound_.setSeconds(channel, 32768);
    EXPECT_EQ(raised([&] { return time_.GetPlayingPos(channel); }), 6);
    EXPECT_EQ(time_.GetDuration(channel), 40000);
}

TEST_F(Times, theLengthOfStreamsAndModules) {
    EXPECT_EQ(time_.GetDuration(open({.seconds = 10.4})), 10);
    EXPECT_EQ(time_.GetDuration(open({.seconds = 10.5})), 10);
    EXPECT_EQ(time_.GetDuration(open({.seconds = 11.5})), 12);
    EXPECT_EQ(time_.GetDuration(open({.kind = FakeKind::music, .seconds = 75.6})), 76);
}

TEST_F(Times, bytesASecondAreThoseOf16BitsAlsoForEightBits) {
    EXPECT_EQ(time_.GetBytesPerSecond(open({.seconds = 1})), 176400);
    EXPECT_EQ(time_.GetBytesPerSecond(open({.seconds = 1, .rate = 22050, .channels = 1})), 44100);
    EXPECT_EQ(time_.GetBytesPerSecond(
                  open({.seconds = 1, .rate = 8000, .channels = 1, .formatFlags = 1})),
              16000);
    EXPECT_EQ(time_.GetBytesPerSecond(open({.seconds = 1, .rate = 48000, .channels = 6})), 192000);
}

TEST_F(Times, theBitRateIsTheAverageOfTheFile) {
    const sound::Handle channel = open({.seconds = 10});
    EXPECT_EQ(time_.GetBitsPerSecond(channel, 160000), 128);
    EXPECT_EQ(time_.GetBitsPerSecond(channel, 160625), 128); // 128.5
    EXPECT_EQ(time_.GetBitsPerSecond(channel, 161875), 130); // 129.5
    EXPECT_EQ(time_.GetBitsPerSecond(channel, 0), 0);
    EXPECT_EQ(time_.GetBitsPerSecond(channel, 40958750), 32767);
    EXPECT_EQ(raised([&] { return time_.GetBitsPerSecond(channel, 40960000); }), 6);
}

TEST_F(Times, withoutALengthThereIsNoBitRate) {
    EXPECT_EQ(time_.GetBitsPerSecond(open({.seconds = 0}), 160000), 0);
    EXPECT_EQ(time_.GetBitsPerSecond(open({.seconds = 0.4}), 160000), 0);
}

TEST_F(Times, modes) {
    EXPECT_EQ(time_.GetMode(open({.channels = 1})), "Mono");
    EXPECT_EQ(time_.GetMode(open({.channels = 2})), "Stereo");
    EXPECT_EQ(time_.GetMode(open({.channels = 6})), "Stereo");
}

TEST_F(Times, bits) {
    EXPECT_EQ(time_.GetBits(open({})), 16);
    EXPECT_EQ(time_.GetBits(open({.formatFlags = 1})), 8);
    EXPECT_EQ(time_.GetBits(open({.formatFlags = 2})), 16);
}

TEST_F(Times, frequency) {
    EXPECT_EQ(time_.GetFrequency(open({.rate = 48000})), 48000);
}

TEST_F(Times, theVersionOfTheSystemsSound) {
    EXPECT_EQ(time_.GetDXver(), 9);
}

TEST_F(Times, seeking) {
    const sound::Handle channel = open({.seconds = 10});
    time_.SetPlayingPos(channel, 4, false);
    EXPECT_EQ(time_.GetPlayingPos(channel), 4);
    time_.SetPlayingPos(channel, 10, true);
    EXPECT_EQ(time_.GetPlayingPos(channel), 10);
    for (const std::int32_t refused : {11, -1, -5}) {
        time_.SetPlayingPos(channel, refused, false);
        EXPECT_EQ(time_.GetPlayingPos(channel), 10) << refused;
    }
}

TEST_F(Times, aDeadHandleHasNothing) {
    EXPECT_EQ(time_.GetPlayingPos(kDead), 0);
    EXPECT_EQ(time_.GetDuration(kDead), 0);
    EXPECT_EQ(time_.GetBytesPerSecond(kDead), 0);
    EXPECT_EQ(time_.GetBitsPerSecond(kDead, 160000), 0);
    EXPECT_EQ(time_.GetMode(kDead), "Stereo");
    EXPECT_EQ(time_.GetBits(kDead), 16);
    EXPECT_EQ(time_.GetFrequency(kDead), 0);
    time_.SetPlayingPos(kDead, 3, false);
    EXPECT_EQ(sound_.calls.back(), "BASS_ChannelSetPosition(99, 0)");
}

} // namespace
} // namespace tovik::test
