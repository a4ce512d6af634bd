// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/StationRig.h"

#include <filesystem>

namespace tovik::test {
namespace {

using sound::StreamStage;
using sound::StreamTrouble;
using testing::ElementsAre;

class StationLossTest : public StationRig {
protected:
    /// How many streams were opened so far.
    [[nodiscard]] std::size_t opened() const { return sound_.opened.size(); }
};

TEST_F(StationLossTest, aLostStationIsOpenedAgainAfterGrowingTimesUntilItSounds) {
    start();
    sounds();
    for (const StreamStage stage : {StreamStage::ended, StreamStage::stalled}) {
        over(stage, StreamTrouble::broken);
        std::vector<std::int64_t> waits;
        for (int i = 0; i < 7; ++i) {
            const std::size_t before = opened();
            const std::int64_t from = host_.clock.monotonicMs();
            while (opened() == before) {
                advance(10);
            }
            waits.push_back((host_.clock.monotonicMs() - from + 500) / 1000);
            // A server that was started again may not have its source yet.
            station().report.httpStatus = 404;
            sound_.over(stream(), StreamStage::failed, StreamTrouble::httpError);
            while (sound_.lives(stream())) {
                advance(10);
            }
            EXPECT_EQ(playing_.scrollerText, " reconnecting");
        }
        EXPECT_THAT(waits, ElementsAre(1, 2, 4, 8, 16, 30, 30));
        const std::size_t before = opened();
        advance(30000);
        ASSERT_EQ(opened(), before + 1);
        sounds();
        EXPECT_EQ(playing_.scrollerText, " One");
        EXPECT_EQ(state_.PrimaryChannel, stream());
    }
}

TEST_F(StationLossTest, stopEndsTheWaitingForAStationThatIsLost) {
    start();
    sounds();
    over(StreamStage::stalled);
    EXPECT_EQ(playing_.scrollerText, " reconnecting");
    transport_.button_stop();
    EXPECT_EQ(playing_.scrollerText, " One");
    advance(120000);
    EXPECT_EQ(opened(), 1U);
}

TEST_F(StationLossTest, aServerThatIsAwayIsTriedAgain) {
    for (const StreamTrouble trouble : {StreamTrouble::refused, StreamTrouble::noAnswer}) {
        start();
        const std::size_t before = opened();
        over(StreamStage::failed, trouble);
        EXPECT_EQ(playing_.scrollerText, " reconnecting");
        advance(1500);
        EXPECT_EQ(opened(), before + 1);
    }
    start();
    station().report.httpStatus = 503;
    over(StreamStage::failed, StreamTrouble::httpError);
    EXPECT_EQ(playing_.scrollerText, " reconnecting");
}

TEST_F(StationLossTest, theSecondsHeardAddUpOverABreak) {
    start();
    sounds();
    sound_.setSeconds(stream(), 65);
    over(StreamStage::ended);
    clock_.Timer1();
    EXPECT_EQ(playing_.time, "01:05");
    advance(1100);
    sounds();
    sound_.setSeconds(stream(), 10);
    clock_.Timer1();
    EXPECT_EQ(playing_.time, "01:15");
}

TEST_F(StationLossTest, aPauseLetsTheBufferFillAndGoingOnIsLive) {
    start();
    sounds();
    transport_.pause();
    for (int i = 0; i < 20; ++i) {
        station().report.bytes += 1000;
        look();
    }
    EXPECT_TRUE(sound_.lives(stream()));
    advance(9000);
    EXPECT_TRUE(sound_.lives(stream())) << "some servers send in large portions";
    advance(3000);
    EXPECT_FALSE(sound_.lives(stream())) << "the buffer is full, the connection is closed";
    EXPECT_EQ(opened(), 1U);
    transport_.pause();
    EXPECT_EQ(opened(), 2U);
    EXPECT_FALSE(sound_.paused);
    sounds();
    EXPECT_EQ(playing_.scrollerText, " One");
}

TEST_F(StationLossTest, theSecondsHeardAddUpOverAPause) {
    start();
    sounds();
    sound_.setSeconds(stream(), 65);
    transport_.pause();
    transport_.pause();
    EXPECT_EQ(opened(), 2U);
    sounds();
    sound_.setSeconds(stream(), 10);
    clock_.Timer1();
    EXPECT_EQ(playing_.time, "01:15");
}

TEST_F(StationLossTest, aFileOfTheWebGoesOnWhereItWasPaused) {
    start("http://one.example/a.mp3");
    station().report.live = false;
    sounds({"HTTP/1.1 200 OK", "Content-Length: 5"});
    transport_.pause();
    advance(60000);
    EXPECT_TRUE(sound_.lives(stream()));
    transport_.pause();
    EXPECT_FALSE(sound_.paused);
    EXPECT_TRUE(sound_.lives(stream()));
    EXPECT_EQ(opened(), 1U);
}

TEST_F(StationLossTest, aStationThatIsLostWhilePausedWaitsForTheUser) {
    start();
    sounds();
    over(StreamStage::ended);
    transport_.pause();
    advance(60000);
    EXPECT_EQ(opened(), 1U);
    transport_.pause();
    EXPECT_EQ(opened(), 2U);
}

TEST_F(StationLossTest, anAddressThatIsNoneIsToldAndGivenUp) {
    for (const StreamTrouble trouble :
         {StreamTrouble::badAddress, StreamTrouble::nameNotFound, StreamTrouble::badCertificate,
          StreamTrouble::notAudio, StreamTrouble::emptyList}) {
        const std::size_t before = opened();
        start("", "Nowhere");
        over(StreamStage::failed, trouble);
        EXPECT_EQ(playing_.stationText, "Nowhere\nno such station");
        EXPECT_FALSE(state_.IsPlaying);
        advance(60000);
        EXPECT_EQ(opened(), before + 1);
    }
    start();
    station().report.httpStatus = 404;
    over(StreamStage::failed, StreamTrouble::httpError);
    EXPECT_EQ(playing_.scrollerText, " no such station");
}

TEST_F(StationLossTest, stopBehindNoSuchStationIsTheEndOfIt) {
    start("", "Nowhere");
    over(StreamStage::failed, StreamTrouble::badAddress);
    transport_.button_stop();
    transport_.pause();
    advance(60000);
    EXPECT_EQ(opened(), 1U);
    EXPECT_FALSE(state_.IsPlaying);
    EXPECT_FALSE(state_.IsPaused);
}

TEST_F(StationLossTest, theClockOfADayOfRadioRunsOnBehindABreak) {
    start();
    sounds();
    sound_.setSeconds(stream(), 90'000);
    clock_.Timer1();
    over(StreamStage::ended);
    clock_.Timer1();
    advance(1100);
    sounds();
    sound_.setSeconds(stream(), 1);
    clock_.Timer1();
    EXPECT_EQ(state_.HeardBefore, 90'000);
    EXPECT_TRUE(state_.IsPlaying);
    EXPECT_FALSE(std::filesystem::exists(host_.folder / "db/err.log"));
}

TEST_F(StationLossTest, aLibraryWithoutANetworkIsNoSuchStation) {
    sound_.initialized = false;
    radio::addStation(RadioLst_, "http://one.example/", "One");
    player_.playRow(1);
    look();
    EXPECT_EQ(playing_.scrollerText, " no such station");
    EXPECT_FALSE(state_.IsPlaying);
}

} // namespace
} // namespace tovik::test
