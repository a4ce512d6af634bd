// SPDX-License-Identifier: GPL-3.0-or-later
// The real device, on a sound server of the test's own, whose monitor tells what is heard. Tests
// wait for what happens, not for time.
#include "sound/output/PulseOutput.h"
#include "sound/output/AheadSource.h"
#include "sound/output/KeeperRig.h"
#include "support/sound/PulseServer.h"

#include <gmock/gmock.h>

#include <array>
#include <csignal>
#include <cstdio>

namespace tovik::sound {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;
using test::PulseServer;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

/// What the monitor of the sink records, frame by frame.
class Monitor {
public:
    Monitor() {
        const std::string command = "parec --raw --format=float32le --rate=44100 --channels=2 -d " +
                                    std::string(PulseServer::kSink) + ".monitor 2>/dev/null";
        // NOLINTNEXTLINE(cert-env33-c): the words are fixed
        recording_ = ::popen(command.c_str(), "r");
    }

    /// The server has ended by then.
    ~Monitor() { ::pclose(recording_); }

    Monitor(const Monitor&) = delete;
    Monitor& operator=(const Monitor&) = delete;

    /// The next frame that is no silence.
    std::array<float, 2> next() {
        std::array<float, 2> frame{};
        while (frame[0] == 0) {
            if (std::fread(frame.data(), sizeof frame, 1, recording_) != 1) {
                ADD_FAILURE() << "the recording has ended";
                return {};
            }
        }
        return frame;
    }

private:
    std::FILE* recording_;
};

class PulseOutputTest : public testing::Test {
protected:
    void SetUp() override {
        if (!PulseServer::available()) {
            GTEST_SKIP() << "pulseaudio is not installed";
        }
        server_.emplace();
    }

    [[nodiscard]] bool isHeardBeyond(const PulseOutput& device, std::int64_t frame) const {
        return eventually([&] { return device.heardClock().value_or(-1) > frame; });
    }

    std::optional<PulseServer> server_;
    AheadSource source_;
};

TEST_F(PulseOutputTest, OpensPausedAndTakesASecondWhenItRuns) {
    PulseOutput device;
    ASSERT_TRUE(device.open(source_));
    EXPECT_EQ(source_.clock(), 0);
    device.setPaused(false);
    EXPECT_EQ(source_.clock(), 44'544) << "a second in whole blocks";
    EXPECT_TRUE(isHeardBeyond(device, 50'000));
    EXPECT_LT(source_.clock() - *device.heardClock(), 60'000);
    EXPECT_LE(source_.settled(), *device.heardClock());
    device.close();
    EXPECT_FALSE(source_.begun());
    EXPECT_EQ(device.heardClock(), std::nullopt);
}

TEST_F(PulseOutputTest, WhatIsHeardGoesOnWithTime) {
    PulseOutput device;
    ASSERT_TRUE(device.open(source_));
    device.setPaused(false);
    ASSERT_TRUE(isHeardBeyond(device, 10'000));
    std::int64_t last = *device.heardClock();
    int steps = 0;
    for (const auto end = steady_clock::now() + milliseconds(300); steady_clock::now() < end;) {
        const std::int64_t now = *device.heardClock();
        EXPECT_GE(now, last - 200); // the server's account and ours differ by a hair
        steps += now > last ? 1 : 0;
        last = std::max(last, now);
        std::this_thread::sleep_for(milliseconds(1));
    }
    EXPECT_GT(steps, 20);
    device.close();
}

TEST_F(PulseOutputTest, EachFrameIsHeardOnceAndAChangeWhereItWasMade) {
    Monitor monitor;
    PulseOutput device;
    ASSERT_TRUE(device.open(source_));
    device.setPaused(false);
    std::array<float, 2> last = monitor.next();
    int changes = 0;
    constexpr int kEnough = 6;
    while (changes < kEnough) {
        if (static_cast<std::int64_t>(last[0]) % 10'000 == 0 && source_.carriedOut() == changes) {
            source_.want();
            const std::int64_t before = device.heardClock().value_or(0);
            device.wake();
            ASSERT_TRUE(eventually([&] { return source_.carriedOut() == changes + 1; }));
            EXPECT_GE(source_.changedAt(), before);
        }
        const std::array<float, 2> now = monitor.next();
        ASSERT_EQ(now[0], last[0] + 1);
        if (now[1] != last[1]) {
            ++changes;
            ASSERT_EQ(now[1], static_cast<float>(changes));
            ASSERT_EQ(static_cast<std::int64_t>(now[0]), source_.changedAt());
        }
        last = now;
    }
    device.close();
    server_.reset(); // ends the recording
}

TEST_F(PulseOutputTest, AChangeIsHeardSoon) {
    PulseOutput device;
    ASSERT_TRUE(device.open(source_));
    device.setPaused(false);
    ASSERT_TRUE(isHeardBeyond(device, 30'000));
    std::int64_t soonest = 1 << 30;
    for (int i = 0; i < 10; ++i) {
        std::this_thread::sleep_for(milliseconds(25));
        const std::int64_t heard = *device.heardClock();
        source_.want();
        device.wake();
        ASSERT_TRUE(eventually([&] { return source_.carriedOut() == i + 1; }));
        soonest = std::min(soonest, source_.changedAt() - heard);
    }
    EXPECT_LE(soonest, device.latencyFrames());
    device.close();
}

TEST_F(PulseOutputTest, ManyChangesInARowAreWrittenTogether) {
    PulseOutput device;
    ASSERT_TRUE(device.open(source_));
    device.setPaused(false);
    ASSERT_TRUE(isHeardBeyond(device, 10'000));
    for (int i = 0; i < 50; ++i) {
        source_.want();
        device.wake();
    }
    // Each look carries out one of them here: there cannot have been many in so short a time.
    EXPECT_LT(source_.carriedOut(), 25);
    device.close();
}

TEST_F(PulseOutputTest, WhilePausedNothingIsTakenAndNothingIsLost) {
    PulseOutput device;
    ASSERT_TRUE(device.open(source_));
    device.setPaused(false);
    ASSERT_TRUE(isHeardBeyond(device, 20'000));
    device.setPaused(true);
    EXPECT_FALSE(source_.begun());
    const std::int64_t stands = source_.clock();
    const std::int64_t heard = *device.heardClock();
    EXPECT_GE(stands, heard);
    EXPECT_LE(stands, heard + 8820) << "the queue was given back";
    std::this_thread::sleep_for(milliseconds(100));
    EXPECT_EQ(source_.clock(), stands);
    EXPECT_EQ(device.heardClock(), heard);
    device.setPaused(false);
    EXPECT_TRUE(isHeardBeyond(device, stands + 20'000));
    device.close();
}

TEST_F(PulseOutputTest, TheServerShowsThePlayerByName) {
    PulseOutput device;
    ASSERT_TRUE(device.open(source_));
    device.setPaused(false);
    const std::string streams = server_->control("list sink-inputs");
    EXPECT_THAT(streams, HasSubstr("application.name = \"Tovik\""));
    EXPECT_THAT(streams, HasSubstr("media.name = \"Tovik\""));
    device.close();
}

TEST_F(PulseOutputTest, ALostServerIsToldOnceAndANewOneServes) {
    PulseOutput device;
    std::atomic<int> losses = 0;
    device.onLost([&] { ++losses; });
    for (int round = 1; round <= 3; ++round) {
        ASSERT_TRUE(device.open(source_));
        device.setPaused(false);
        ASSERT_TRUE(isHeardBeyond(device, source_.settled() + 1000));
        server_->kill();
        ASSERT_TRUE(eventually([&] { return losses == round; }));
        EXPECT_FALSE(source_.begun());
        EXPECT_EQ(device.heardClock(), std::nullopt);
        device.setPaused(true);
        device.setPaused(false);
        EXPECT_FALSE(source_.begun()) << "a lost device takes nothing";
        device.close();
        EXPECT_FALSE(device.open(source_));
        EXPECT_FALSE(device.open(source_));
        server_->start();
    }
    EXPECT_EQ(losses, 3);
}

TEST_F(PulseOutputTest, AServerThatStandsStillIsLostAfterAWhile) {
    PulseOutput device;
    std::atomic<int> losses = 0;
    device.onLost([&] { ++losses; });
    ASSERT_TRUE(device.open(source_));
    device.setPaused(false);
    ASSERT_TRUE(isHeardBeyond(device, 1000));
    server_->freeze();
    EXPECT_TRUE(eventually([&] { return losses == 1; }));
    const auto before = steady_clock::now();
    device.close();
    EXPECT_LT(steady_clock::now() - before, std::chrono::seconds(1));
    EXPECT_FALSE(device.open(source_)) << "it accepts and does not answer";
    EXPECT_LT(steady_clock::now() - before, std::chrono::seconds(4));
    server_->thaw();
    EXPECT_TRUE(eventually([&] { return device.open(source_); }));
    device.close();
}

TEST_F(PulseOutputTest, APauseThatIsNotAnsweredIsALoss) {
    PulseOutput device;
    std::atomic<int> losses = 0;
    device.onLost([&] { ++losses; });
    ASSERT_TRUE(device.open(source_));
    device.setPaused(false);
    ASSERT_TRUE(isHeardBeyond(device, 1000));
    server_->freeze();
    device.setPaused(true);
    EXPECT_EQ(losses, 1);
    device.close();
    EXPECT_FALSE(source_.begun());
    server_->thaw();
}

TEST_F(PulseOutputTest, OpensADeviceByTheNameThatIsListed) {
    EXPECT_THAT(PulseOutput::listDevices(), Contains(PulseServer::kSinkDescription));
    for (const char* name : {PulseServer::kSinkDescription, PulseServer::kSink}) {
        PulseOutput named(name);
        ASSERT_TRUE(named.open(source_)) << name;
        named.close();
    }
    PulseOutput unknown("No such device");
    EXPECT_FALSE(unknown.open(source_));
    EXPECT_TRUE(unknown.serverFound());
}

TEST_F(PulseOutputTest, TheKeeperBringsTheSoundBack) {
    const KeeperTimes times{milliseconds(20), std::chrono::hours(1), milliseconds(50)};
    CountingObserver observer;
    PulseOutput* device = nullptr;
    auto owned = std::make_unique<PulseOutput>();
    device = owned.get();
    DeviceKeeper keeper(std::move(owned), observer, times);
    ASSERT_TRUE(keeper.openNow(source_));
    EXPECT_FALSE(keeper.callbackRunning());
    keeper.want(Demand::running);
    for (int round = 1; round <= 2; ++round) {
        ASSERT_TRUE(isHeardBeyond(*device, source_.settled() + 1000));
        EXPECT_TRUE(keeper.callbackRunning());
        server_->kill();
        ASSERT_TRUE(eventually([&] { return observer.lost == round; }));
        EXPECT_FALSE(keeper.callbackRunning());
        server_->start();
        ASSERT_TRUE(eventually([&] { return observer.back == round; }));
    }
    ASSERT_TRUE(isHeardBeyond(*device, source_.settled()));
    keeper.shutDown();
}

TEST_F(PulseOutputTest, WithoutAServerThereIsNoDevice) {
    server_->kill();
    PulseOutput device;
    EXPECT_FALSE(device.open(source_));
    EXPECT_FALSE(device.serverFound());
    EXPECT_THAT(PulseOutput::listDevices(), IsEmpty());
    server_->start();
    EXPECT_TRUE(device.open(source_));
    device.close();
}

TEST_F(PulseOutputTest, AServerThatAcceptsAndNeverAnswersIsGivenUp) {
    server_->freeze();
    const auto before = steady_clock::now();
    PulseOutput device;
    EXPECT_FALSE(device.open(source_));
    EXPECT_TRUE(device.serverFound());
    EXPECT_LT(steady_clock::now() - before, std::chrono::seconds(4));
    server_->thaw();
    EXPECT_TRUE(device.open(source_));
    device.close();
}

} // namespace
} // namespace tovik::sound
