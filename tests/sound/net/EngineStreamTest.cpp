// SPDX-License-Identifier: GPL-3.0-or-later
// Stations as the player sees them, by the operations of the library.
#include "sound/engine/Engine.h"
#include "sound/net/NetRig.h"
#include "sound/output/SimulatedOutput.h"

namespace tovik::sound {
namespace {

using namespace test;
using Clock = std::chrono::steady_clock;

/// An engine whose device is stepped by hand.
class StreamEngine {
public:
    explicit StreamEngine(const NetOptions& net = quickOptions())
        : owned_(std::make_unique<SimulatedOutput>(
              SimulatedOutput::Settings{.sink =
                                            [this](std::span<const float> block) {
                                                for (const float sample : block) {
                                                    loudest = std::max(loudest, std::abs(sample));
                                                }
                                            }})),
          device(*owned_), made_(std::move(owned_), {.feeder = FeederMode::ownThread, .net = net}),
          engine(made_) {
        EXPECT_TRUE(engine.BASS_Init(1, 44100, 0, 0, 0));
    }

    Handle open(const std::string& url, DownloadRoutine routine = {}) {
        return engine.BASS_StreamCreateURL(url, 0, BASS_STREAM_META, std::move(routine), 0);
    }

    [[nodiscard]] StreamStage stage(Handle stream) {
        return engine.streamReport(stream).value_or(StreamReport{}).stage;
    }

    float loudest = 0;

private:
    std::unique_ptr<SimulatedOutput> owned_;

public:
    SimulatedOutput& device;

private:
    Engine made_;

public:
    SoundLibrary& engine;
};

void singForEver(Peer& peer) {
    const std::string body = mediaText("mp3_cbr128.mp3");
    peer.send(kMp3Head + "icy-name:A\r\nicy-br:128\r\n\r\n" + body);
    peer.hold();
}

TEST(AStreamOfTheEngine, HasAHandleBeforeItsServerAnswers) {
    ScriptedServer server([](Peer& peer) { peer.hold(); });
    StreamEngine rig;
    const auto begin = Clock::now();
    const Handle stream = rig.open(server.url());
    EXPECT_LT(Clock::now() - begin, kAtOnce);
    ASSERT_NE(stream, kNoHandle);
    EXPECT_EQ(rig.stage(stream), StreamStage::connecting);
    EXPECT_EQ(rig.engine.BASS_StreamGetTags(stream, BASS_TAG_ICY), std::nullopt);
    EXPECT_TRUE(rig.engine.BASS_StreamPlay(stream, false, 0));
    EXPECT_TRUE(rig.engine.BASS_ChannelSetAttributes(stream, -1, 50, -101));
    EXPECT_NE(rig.engine.BASS_ChannelSetFX(stream, BASS_FX_PARAMEQ), kNoHandle);
    rig.device.advance(4096);
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(stream), Activity::stalled);
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(stream), 0);
    ASSERT_TRUE(soon([&] { return server.open() == 1; }));
    const auto freed = Clock::now();
    EXPECT_TRUE(rig.engine.BASS_StreamFree(stream));
    EXPECT_TRUE(soon([&] { return server.open() == 0; }));
    EXPECT_LT(Clock::now() - freed, kAtOnce);
    EXPECT_EQ(rig.engine.streamReport(stream), std::nullopt);
}

TEST(AStreamOfTheEngine, SoundsAndCountsWhatWasHeard) {
    ScriptedServer server(singForEver);
    StreamEngine rig;
    const Handle stream = rig.open(server.url());
    rig.engine.BASS_StreamPlay(stream, false, 0);
    ASSERT_TRUE(soon([&] {
        rig.device.advance(512);
        return rig.loudest > 0.01F;
    }));
    EXPECT_EQ(rig.stage(stream), StreamStage::playing);
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(stream), Activity::playing);
    const std::int64_t before = rig.engine.BASS_ChannelGetPosition(stream);
    for (int i = 0; i < 20; ++i) {
        rig.device.advance(512);
    }
    EXPECT_EQ(rig.engine.BASS_ChannelGetPosition(stream), before + 20 * 512 * 4);
    EXPECT_EQ(rig.engine.BASS_StreamGetLength(stream), 0);
    EXPECT_FALSE(rig.engine.BASS_ChannelSetPosition(stream, 0));
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::notAvailable);
    EXPECT_TRUE(rig.engine.BASS_StreamGetTags(stream, BASS_TAG_ICY));
    EXPECT_EQ(rig.engine.streamReport(stream)->kbps, 128);
}

TEST(AStreamOfTheEngine, EndsWhenAllWasHeard) {
    ScriptedServer server([](Peer& peer) {
        peer.send(kMp3Head + "\r\n" + mediaText("mp3_cbr128.mp3").substr(0, 20'000));
    });
    StreamEngine rig;
    const Handle stream = rig.open(server.url());
    rig.engine.BASS_StreamPlay(stream, false, 0);
    ASSERT_TRUE(soon([&] { return rig.stage(stream) == StreamStage::playing; }));
    std::int64_t heard = 0;
    ASSERT_TRUE(soon([&] {
        heard = rig.engine.BASS_ChannelGetPosition(stream);
        rig.device.advance(512);
        return rig.stage(stream) == StreamStage::ended;
    }));
    EXPECT_NEAR(static_cast<double>(heard), 1.25 * 176'400, 0.1 * 176'400);
    EXPECT_EQ(rig.engine.BASS_ChannelIsActive(stream), Activity::stopped);
}

TEST(AStreamOfTheEngine, ThatFailsHasStopped) {
    StreamEngine rig;
    const Handle stream = rig.open("");
    ASSERT_NE(stream, kNoHandle);
    rig.engine.BASS_StreamPlay(stream, false, 0);
    ASSERT_TRUE(soon([&] { return rig.stage(stream) == StreamStage::failed; }));
    ASSERT_TRUE(soon([&] { return rig.engine.BASS_ChannelIsActive(stream) == Activity::stopped; }));
    EXPECT_EQ(rig.engine.streamReport(stream)->trouble, StreamTrouble::badAddress);
}

TEST(AStreamOfTheEngine, TellsTheRoutineOfTitles) {
    std::atomic<bool> go = false;
    ScriptedServer server([&](Peer& peer) {
        const std::string body = mediaText("mp3_cbr128.mp3");
        peer.send(kMp3Head + "icy-metaint:20000\r\n\r\n");
        while (!go && peer.wait(1ms)) {
        }
        peer.send(withMetadata(body, 20'000, {"StreamTitle='One';"}));
    });
    StreamEngine rig;
    Heard heard;
    const Handle stream = rig.open(server.url(), heard.download());
    EXPECT_NE(rig.engine.BASS_ChannelSetSyncMeta(stream, heard.meta(), 0), kNoHandle);
    EXPECT_EQ(rig.engine.BASS_ChannelSetSyncMeta(stream + 100, heard.meta(), 0), kNoHandle);
    go = true;
    ASSERT_TRUE(soon([&] { return heard.ends() == 1; }));
    EXPECT_EQ(heard.titles(), std::vector<std::string>{"StreamTitle='One';"});
    EXPECT_EQ(heard.places(), std::vector<std::size_t>{20'000});
    EXPECT_EQ(rig.engine.BASS_StreamGetTags(stream, BASS_TAG_META), "StreamTitle='One';");
}

TEST(AStreamOfTheEngine, RefusesWhatItCannotBe) {
    StreamEngine rig;
    EXPECT_EQ(rig.engine.BASS_StreamCreateURL("http://a", 1, 0, {}, 0), kNoHandle);
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::illegalParameter);
    EXPECT_EQ(rig.engine.BASS_StreamCreateURL("http://a", 0, BASS_STREAM_DECODE, {}, 0), kNoHandle);
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::notAvailable);
    const Handle file =
        rig.engine.BASS_StreamCreateFile(false, mediaPath("wav_s16_44100_stereo.wav"), 0, 0, 0);
    ASSERT_NE(file, kNoHandle);
    EXPECT_EQ(rig.engine.streamReport(file), std::nullopt);
    EXPECT_EQ(rig.engine.BASS_StreamGetTags(file, BASS_TAG_ICY), std::nullopt);
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::notAvailable);
    rig.engine.BASS_Free();
    EXPECT_EQ(rig.open("http://a"), kNoHandle);
    EXPECT_EQ(rig.engine.BASS_ErrorGetCode(), ErrorCode::notInitialized);
}

TEST(TheEndOfTheEngine, WaitsForNoServer) {
    ScriptedServer server([](Peer& peer) { peer.hold(); });
    auto rig = std::make_unique<StreamEngine>();
    for (int i = 0; i < 5; ++i) {
        ASSERT_NE(rig->open(server.url()), kNoHandle);
    }
    ASSERT_TRUE(soon([&] { return server.open() == 5; }));
    const auto begin = Clock::now();
    rig.reset();
    EXPECT_LT(Clock::now() - begin, kAtOnce);
    EXPECT_TRUE(soon([&] { return server.open() == 0; }));
}

} // namespace
} // namespace tovik::sound
