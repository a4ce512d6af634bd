// SPDX-License-Identifier: GPL-3.0-or-later
// The real device, on a sound server of the test's own. Tests wait for callbacks, not for time.
#include "sound/output/SdlOutput.h"
#include "sound/output/CountingSource.h"
#include "sound/output/KeeperRig.h"
#include "support/sound/PulseServer.h"

#include <gmock/gmock.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>

// SDL 2.26 forgets to release 88 bytes in libpulse for each message of the server about a sink.
// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp): the sanitizer's name
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libpulse.so";
}

namespace tovik::sound {
namespace {

using std::chrono::milliseconds;
using test::PulseServer;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

class SdlOutputTest : public testing::Test {
protected:
    void SetUp() override {
        if (!PulseServer::available()) {
            GTEST_SKIP() << "pulseaudio is not installed";
        }
        // A card of this machine must not step in where no server is meant to be found.
        ::setenv("SDL_AUDIODRIVER", "pulseaudio", 1);
        server_.emplace();
    }

    void TearDown() override { ::unsetenv("SDL_AUDIODRIVER"); }

    // Connects a sink; and another after a second, because SDL does not hear of what comes before
    // the server has taken its subscription. Not more than needed: SDL 2.26 leaks what arrives
    // while it is being ended.
    [[nodiscard]] bool noticesNewSinks(const std::atomic<int>& arrivals) const {
        const int before = arrivals;
        auto patience = std::chrono::steady_clock::now();
        return eventually([&] {
            const auto now = std::chrono::steady_clock::now();
            if (now >= patience && arrivals == before) {
                static_cast<void>(server_->control("load-module module-null-sink"));
                patience = now + std::chrono::seconds(1);
            }
            return arrivals > before;
        });
    }

    std::optional<PulseServer> server_;
    CountingSource source_;
};

TEST_F(SdlOutputTest, TakesTheMixUntilItIsClosed) {
    SdlOutput device;
    ASSERT_TRUE(device.open(source_));
    source_.waitBeyond(10 * kBlockFrames);
    EXPECT_EQ(source_.largestBlock(), 1024U);
    EXPECT_EQ(device.latencyFrames(), 2048);
    device.close();
    EXPECT_FALSE(source_.inside());
    const std::size_t atClose = source_.frames();
    ASSERT_TRUE(device.open(source_));
    source_.waitBeyond(atClose);
    device.close();
}

TEST_F(SdlOutputTest, TheSamplesReachTheServerBitForBit) {
    const std::string command = "parec --raw --format=float32le --rate=44100 --channels=2 -d " +
                                std::string(PulseServer::kSink) + ".monitor 2>/dev/null";
    // NOLINTNEXTLINE(cert-env33-c): the words are fixed
    std::FILE* const recording = ::popen(command.c_str(), "r");
    ASSERT_NE(recording, nullptr);
    SdlOutput device;
    ASSERT_TRUE(device.open(source_));
    std::array<float, 2> frame{};
    while (frame[0] == 0 && std::fread(frame.data(), sizeof frame, 1, recording) == 1) {
    }
    for (int i = 0; i < 10'000; ++i) {
        const float last = frame[0];
        // A busy machine may leave a gap of silence, but no sample may be lost or altered by it.
        do {
            ASSERT_EQ(std::fread(frame.data(), sizeof frame, 1, recording), 1U);
        } while (frame[0] == 0 && frame[1] == 0);
        ASSERT_EQ(frame[0], last + 1);
        ASSERT_EQ(frame[1], -(last + 1));
    }
    device.close();
    server_.reset(); // ends the recording
    ::pclose(recording);
}

TEST_F(SdlOutputTest, TheServerShowsThePlayerByName) {
    SdlOutput device;
    ASSERT_TRUE(device.open(source_));
    source_.waitBeyond(1024);
    const std::string streams = server_->control("list sink-inputs");
    EXPECT_THAT(streams, HasSubstr("application.name = \"Tovik\""));
    EXPECT_THAT(streams, HasSubstr("media.name = \"Tovik\""));
    device.close();
}

TEST_F(SdlOutputTest, TakesNothingWhilePaused) {
    SdlOutput device;
    ASSERT_TRUE(device.open(source_));
    source_.waitBeyond(3 * kBlockFrames);
    device.setPaused(true);
    const std::size_t atPause = source_.frames();
    std::this_thread::sleep_for(milliseconds(100)); // four blocks
    EXPECT_EQ(source_.frames(), atPause);
    device.setPaused(false);
    source_.waitBeyond(atPause);
    device.close();
}

TEST_F(SdlOutputTest, ALostServerIsToldOnceAndANewOneServes) {
    SdlOutput device;
    std::atomic<int> losses = 0;
    device.onLost([&] { ++losses; });
    for (int round = 1; round <= 3; ++round) {
        ASSERT_TRUE(device.open(source_));
        source_.waitBeyond(source_.frames() + 3 * kBlockFrames);
        server_->kill();
        ASSERT_TRUE(eventually([&] { return losses == round; }));
        ASSERT_TRUE(eventually([&] { return !source_.inside(); }));
        const std::size_t atLoss = source_.frames();
        std::this_thread::sleep_for(milliseconds(100));
        EXPECT_EQ(source_.frames(), atLoss) << "a lost device takes nothing";
        device.close();
        EXPECT_FALSE(device.open(source_));
        EXPECT_FALSE(device.open(source_));
        server_->start();
    }
    ASSERT_TRUE(device.open(source_));
    source_.waitBeyond(source_.frames());
    device.close();
    EXPECT_EQ(losses, 3);
}

TEST_F(SdlOutputTest, ReportsDevicesThatArriveButNotThoseThatWereThere) {
    SdlOutput device;
    std::atomic<int> arrivals = 0;
    device.onArrival([&] { ++arrivals; });
    ASSERT_TRUE(device.open(source_));
    source_.waitBeyond(5 * kBlockFrames);
    EXPECT_EQ(arrivals, 0);
    EXPECT_TRUE(noticesNewSinks(arrivals));
    device.close();
    EXPECT_TRUE(noticesNewSinks(arrivals)) << "also while it is closed";
}

TEST_F(SdlOutputTest, HearsOfArrivalsAgainAfterALoss) {
    SdlOutput device;
    std::atomic<int> losses = 0;
    std::atomic<int> arrivals = 0;
    device.onLost([&] { ++losses; });
    device.onArrival([&] { ++arrivals; });
    ASSERT_TRUE(device.open(source_));
    source_.waitBeyond(1024);
    server_->kill();
    ASSERT_TRUE(eventually([&] { return losses == 1; }));
    device.close();
    server_->start();
    ASSERT_TRUE(device.open(source_));
    EXPECT_EQ(arrivals, 0);
    EXPECT_TRUE(noticesNewSinks(arrivals));
    device.close();
}

TEST_F(SdlOutputTest, AHangingServerHoldsUpTheClosingOnlySoLong) {
    SdlOutput device;
    ASSERT_TRUE(device.open(source_));
    source_.waitBeyond(3 * kBlockFrames);
    server_->freeze();
    std::this_thread::sleep_for(milliseconds(200)); // until SDL waits for it
    const auto before = std::chrono::steady_clock::now();
    device.close();
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(8));
    EXPECT_FALSE(source_.inside());
    EXPECT_FALSE(device.open(source_)) << "while SDL is still closing";
    server_->thaw();
    ASSERT_TRUE(eventually([&] { return device.open(source_); }));
    source_.waitBeyond(source_.frames());
    device.close();
}

TEST_F(SdlOutputTest, OpensADeviceByTheNameThatIsListed) {
    EXPECT_THAT(SdlOutput::listDevices(), Contains(PulseServer::kSinkDescription));
    SdlOutput named(PulseServer::kSinkDescription);
    ASSERT_TRUE(named.open(source_));
    source_.waitBeyond(1024);
    named.close();
    SdlOutput unknown("No such device");
    EXPECT_FALSE(unknown.open(source_));
}

TEST_F(SdlOutputTest, TheSignalsThatEndAProgramStayAsTheyAre) {
    SdlOutput device;
    ASSERT_TRUE(device.open(source_));
    for (const int signal : {SIGTERM, SIGINT}) {
        struct sigaction action {};

        ASSERT_EQ(::sigaction(signal, nullptr, &action), 0);
        EXPECT_EQ(action.sa_handler, SIG_DFL);
    }
    device.close();
}

TEST_F(SdlOutputTest, TheKeeperBringsTheSoundBack) {
    const KeeperTimes times{milliseconds(20), std::chrono::hours(1), milliseconds(50)};
    KeeperRig<SdlOutput> rig(std::make_unique<SdlOutput>(), times);
    rig.keeper.warmUp(rig.source);
    ASSERT_TRUE(rig.keeper.openNow(rig.source));
    rig.keeper.want(Demand::running);
    for (int round = 1; round <= 2; ++round) {
        rig.source.waitBeyond(rig.source.frames() + 3 * kBlockFrames);
        server_->kill();
        ASSERT_TRUE(eventually([&] { return rig.observer.lost == round; }));
        EXPECT_FALSE(rig.keeper.callbackRunning());
        server_->start();
        ASSERT_TRUE(eventually([&] { return rig.observer.back == round; }));
        EXPECT_TRUE(rig.keeper.callbackRunning());
    }
    rig.source.waitBeyond(rig.source.frames());
}

TEST_F(SdlOutputTest, WithoutAServerThereIsNoDevice) {
    server_->kill();
    SdlOutput device;
    EXPECT_FALSE(device.open(source_));
    EXPECT_THAT(SdlOutput::listDevices(), IsEmpty());
    server_->start();
    EXPECT_TRUE(device.open(source_));
    device.close();
}

TEST(SdlOutputWithoutSound, DriversThatOnlyPretendAreNoDevice) {
    CountingSource source;
    for (const char* driver : {"dummy", "disk"}) {
        ::setenv("SDL_AUDIODRIVER", driver, 1);
        SdlOutput device;
        EXPECT_FALSE(device.open(source)) << driver;
        EXPECT_THAT(SdlOutput::listDevices(), IsEmpty()) << driver;
    }
    ::unsetenv("SDL_AUDIODRIVER");
}

TEST(SdlOutputWithoutSound, AMachineWithoutACardIsNotLamentedOnStderr) {
    const test::TemporaryFolder folder;
    const std::string config = folder.write("asound.conf", "pcm.!default { type hw card 31 }\n");
    ::setenv("SDL_AUDIODRIVER", "alsa", 1);
    ::setenv("ALSA_CONFIG_PATH", config.c_str(), 1);
    CountingSource source;
    testing::internal::CaptureStderr();
    {
        SdlOutput device;
        EXPECT_FALSE(device.open(source));
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    ::unsetenv("ALSA_CONFIG_PATH");
    ::unsetenv("SDL_AUDIODRIVER");
}

} // namespace
} // namespace tovik::sound
