// SPDX-License-Identifier: GPL-3.0-or-later
// Stations that behave: what is heard, told and handed over.
#include "sound/net/NetRig.h"

#include <array>
#include <atomic>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace tovik::sound {
namespace {

using namespace test;

/// A file of the media in another coding.
std::string coded(const std::string& suffix, const std::string& options) {
    const TemporaryFolder folder;
    const std::string path = folder / ("a." + suffix);
    const std::string command = "ffmpeg -v error -nostdin -i " +
                                mediaPath("wav_s16_44100_stereo.wav") + " " + options + " " + path;
    // NOLINTNEXTLINE(cert-env33-c,concurrency-mt-unsafe): its text is ours
    EXPECT_EQ(std::system(command.c_str()), 0);
    std::string text;
    for (const std::byte byte : fileBytes(path)) {
        text.push_back(static_cast<char>(byte));
    }
    return text;
}

double loudness(const std::vector<float>& samples) {
    double sum = 0;
    for (const float sample : samples) {
        sum += double{sample} * double{sample};
    }
    return samples.empty() ? 0 : std::sqrt(sum / static_cast<double>(samples.size()));
}

struct Coding {
    const char* name;
    const char* type;
    std::string (*bytes)();
};

class EachCoding : public testing::TestWithParam<Coding> {};

TEST_P(EachCoding, SoundsAsLongAndAsLoudAsItsSource) {
    const std::string body = GetParam().bytes();
    ScriptedServer server([&](Peer& peer) {
        peer.send("HTTP/1.0 200 OK\r\nContent-Type: " + std::string(GetParam().type) +
                  "\r\nicy-name:A\r\n\r\n" + body);
    });
    const std::vector<float> source = readAll(*openMedia("wav_s16_44100_stereo.wav"));
    NetRig rig(server.url());
    const std::vector<float> heard = rig.readAll();
    const auto frames = static_cast<double>(source.size());
    EXPECT_NEAR(static_cast<double>(heard.size()), frames, 0.1 * frames);
    EXPECT_NEAR(loudness(heard), loudness(source), 0.1 * loudness(source));
    EXPECT_EQ(rig.report().stage, StreamStage::ended);
    EXPECT_EQ(rig.report().trouble, StreamTrouble::none);
    EXPECT_EQ(rig.report().rate, GetParam().name == std::string("Opus") ? 48000 : 44100);
}

INSTANTIATE_TEST_SUITE_P(
    AStation, EachCoding,
    testing::Values(
        Coding{"Mp3", "audio/mpeg", [] { return coded("mp3", "-c:a libmp3lame -b:a 128k"); }},
        Coding{"Aac", "audio/aacp", [] { return coded("aac", "-c:a aac -b:a 128k -f adts"); }},
        Coding{"AacAsMpeg", "audio/mpeg", [] { return coded("aac", "-c:a aac -f adts"); }},
        Coding{"Vorbis", "application/ogg", [] { return mediaText("ogg_44100.ogg"); }},
        Coding{"Opus", "audio/ogg", [] { return coded("opus", "-c:a libopus -b:a 96k"); }},
        Coding{"Flac", "audio/flac", [] { return coded("flac", "-c:a flac"); }},
        Coding{"OggFlac", "application/ogg", [] { return coded("oga", "-c:a flac -f ogg"); }},
        Coding{"WithoutAType", "", [] { return coded("mp3", "-c:a libmp3lame -b:a 128k"); }}),
    [](const auto& coding) { return coding.param.name; });

TEST(AStation, IsJoinedInTheMiddleOfAFrame) {
    const std::string body = mediaText("mp3_cbr128.mp3").substr(10'007);
    ScriptedServer server([&](Peer& peer) { peer.send(kMp3Head + "icy-br:128\r\n\r\n" + body); });
    NetRig rig(server.url());
    EXPECT_GT(rig.readAll().size(), 44'100U);
}

TEST(AStation, MayTakeLongerBehindItsHeadThanBeforeIt) {
    ScriptedServer server([](Peer& peer) {
        peer.send(kMp3Head + "\r\n");
        peer.wait(800ms);
        peer.send(mediaText("mp3_cbr128.mp3"));
    });
    NetOptions options = quickOptions();
    options.times.head = 600ms; // which a busy machine keeps, too
    NetRig rig(server.url(), options);
    EXPECT_TRUE(rig.open());
}

TEST(AStation, HandsOverItsBytesWithoutMetadataAndItsTitlesInTheirPlaces) {
    const std::string body = mediaText("mp3_cbr128.mp3");
    const std::vector<std::string> titles = {"StreamTitle='One';", "", "StreamTitle='One';",
                                             "StreamTitle='Two;x';StreamUrl='';"};
    ScriptedServer server([&](Peer& peer) {
        EXPECT_TRUE(peer.asks("Icy-MetaData: 1"));
        peer.send(kMp3Head + "icy-metaint:4096\r\n\r\n" + withMetadata(body, 4096, titles));
    });
    NetRig rig(server.url());
    static_cast<void>(rig.readAll());
    EXPECT_EQ(rig.heard.bytes(), body);
    EXPECT_EQ(rig.heard.titles(), (std::vector{titles[0], titles[3]}));
    EXPECT_EQ(rig.heard.places(), (std::vector<std::size_t>{4096, 4 * 4096}));
    EXPECT_TRUE(soon([&] { return rig.heard.ends() == 1; }));
    EXPECT_EQ(rig.stream.tags(BASS_TAG_META), titles[3]);
    EXPECT_EQ(rig.report().heardMetadata, titles[3]);
}

TEST(AStation, TellsATitleAsHeardWhenItIs) {
    const std::string body = mediaText("mp3_cbr128.mp3"); // 16,000 bytes are a second
    ScriptedServer server([&](Peer& peer) {
        peer.send(kMp3Head + "icy-metaint:16000\r\n\r\n" +
                  withMetadata(body, 16000, {"StreamTitle='One';"}));
    });
    NetRig rig(server.url());
    ASSERT_TRUE(rig.open());
    static_cast<void>(readFrames(*rig.decoder, 3 * 44'100 / 2));
    EXPECT_EQ(rig.stream.report(44'100 * 8 / 10, false).heardMetadata, "");
    EXPECT_EQ(rig.stream.report(44'100 * 12 / 10, false).heardMetadata, "StreamTitle='One';");
}

TEST(AStation, TellsItsHeadersAsTags) {
    ScriptedServer server([](Peer& peer) {
        peer.send("ICY 200 OK\r\nicy-name:The name\r\nicy-br:128\r\nContent-Type: audio/mpeg\r\n"
                  "\r\n" +
                  mediaText("mp3_cbr128.mp3"));
    });
    NetRig rig(server.url());
    ASSERT_TRUE(rig.open());
    const std::string tags = rig.stream.tags(BASS_TAG_ICY).value_or("");
    EXPECT_TRUE(tags.starts_with(std::string("ICY 200 OK\0icy-name:The name\0", 29))) << tags;
    EXPECT_TRUE(tags.ends_with(std::string("\0\0", 2)));
    EXPECT_EQ(rig.stream.tags(BASS_TAG_META), std::nullopt);
    EXPECT_EQ(rig.report(false).kbps, 128);
    EXPECT_TRUE(rig.report(false).live);
    EXPECT_EQ(rig.report(false).stage, StreamStage::playing);
}

TEST(AStation, MayAnswerInChunks) {
    const std::string body = mediaText("mp3_cbr128.mp3");
    ScriptedServer server([&](Peer& peer) {
        peer.send("HTTP/1.1 200 OK\r\nContent-Type: audio/mpeg\r\nTransfer-Encoding: chunked\r\n"
                  "\r\n");
        for (std::size_t at = 0; at < body.size(); at += 0x333) {
            const std::string part = body.substr(at, 0x333);
            std::array<char, 16> size{};
            static_cast<void>(std::snprintf(size.data(), size.size(), "%zx\r\n", part.size()));
            peer.send(size.data() + part + "\r\n");
        }
        peer.send("0\r\n\r\n");
    });
    NetRig rig(server.url());
    static_cast<void>(rig.readAll());
    EXPECT_EQ(rig.heard.bytes(), body);
    EXPECT_TRUE(rig.report().live);
}

TEST(AStation, MayMoveEightTimes) {
    ScriptedServer server([](Peer& peer) {
        if (peer.number() < 8) {
            peer.send("HTTP/1.1 302 Found\r\nLocation: /" + std::to_string(peer.number() + 1) +
                      "\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
        } else {
            peer.send(kMp3Head + "\r\n" + mediaText("mp3_cbr128.mp3"));
        }
    });
    NetRig rig(server.url("/0"));
    EXPECT_TRUE(rig.open());
    EXPECT_EQ(rig.report(false).finalAddress, server.url("/8"));
}

TEST(AStation, MayChangeRateAndChannels) {
    const std::string body = mediaText("mp3_cbr128.mp3") + mediaText("mp3_22050.mp3") +
                             mediaText("mp3_mono.mp3") + mediaText("mp3_48000.mp3");
    ScriptedServer server([&](Peer& peer) { peer.send(kMp3Head + "\r\n" + body); });
    std::size_t seconds = 0;
    for (const char* name : {"mp3_cbr128.mp3", "mp3_22050.mp3", "mp3_mono.mp3", "mp3_48000.mp3"}) {
        const auto decoder = openMedia(name);
        seconds += static_cast<std::size_t>(scannedLength(*decoder) * 100 / decoder->sampleRate());
    }
    NetRig rig(server.url());
    const std::size_t heard = rig.readAll().size() / 2 * 100 / 44'100;
    EXPECT_NEAR(static_cast<double>(heard), static_cast<double>(seconds), 40);
    EXPECT_EQ(rig.report().rate, 48'000);
    EXPECT_EQ(rig.report().channels, 2);
}

TEST(AStation, OfAChainOfOggStreamsTellsTheirTitles) {
    const std::string one = coded("ogg", "-c:a libvorbis -metadata artist=A -metadata title=One");
    const std::string two = coded("ogg", "-c:a libvorbis -ar 48000 -metadata title=Two");
    ScriptedServer server([&](Peer& peer) {
        peer.send("HTTP/1.0 200 OK\r\nContent-Type: application/ogg\r\n\r\n" + one + two);
    });
    const std::size_t single = readAll(*openMedia("wav_s16_44100_stereo.wav")).size();
    NetRig rig(server.url());
    ASSERT_TRUE(rig.open());
    EXPECT_EQ(rig.report(false).heardMetadata, "StreamTitle='A - One';");
    EXPECT_GT(test::readAll(*rig.decoder).size(), single * 19 / 10);
    EXPECT_EQ(rig.report().heardMetadata, "StreamTitle='Two';");
    EXPECT_EQ(rig.report().rate, 48'000);
}

TEST(AStation, IsBufferedUntilThereIsEnough) {
    const std::string body = mediaText("mp3_cbr128.mp3");
    std::atomic<bool> more = false;
    ScriptedServer server([&](Peer& peer) {
        peer.send(kMp3Head + "icy-br:128\r\n\r\n" + body.substr(0, 6000));
        while (!more && peer.wait(1ms)) {
        }
        peer.send(body.substr(6000, 20'000));
        peer.hold();
    });
    NetRig rig(server.url());
    ASSERT_TRUE(soon([&] { return rig.report(false).percent == 12; }));
    EXPECT_EQ(rig.report(false).stage, StreamStage::buffering);
    more = true;
    EXPECT_TRUE(rig.open());
    EXPECT_EQ(rig.report(false).stage, StreamStage::playing);
}

TEST(AStation, IsBufferedByItsOwnRateIfItTellsNone) {
    // 8 KB are half a second of a usual station, and a tenth of one of this.
    const std::string body = coded("flac", "-c:a flac -sample_fmt s32 -bits_per_raw_sample 24");
    const std::size_t second = body.size() / 3;
    std::atomic<bool> more = false;
    ScriptedServer server([&](Peer& peer) {
        peer.send("HTTP/1.0 200 OK\r\nContent-Type: audio/flac\r\n\r\n" +
                  body.substr(0, second / 3));
        while (!more && peer.wait(1ms)) {
        }
        peer.send(body.substr(second / 3));
        peer.hold();
    });
    NetRig rig(server.url());
    std::atomic<bool> opened = false;
    std::thread reader([&] {
        EXPECT_TRUE(rig.open());
        opened = true;
    });
    std::this_thread::sleep_for(300ms); // as long as a burst would be over for
    EXPECT_FALSE(opened.load());
    EXPECT_EQ(rig.report(false).stage, StreamStage::buffering);
    more = true;
    reader.join();
    EXPECT_EQ(rig.report(false).stage, StreamStage::playing);
    EXPECT_EQ(rig.report(false).channels, 2);
}

TEST(AStation, SoundsOnceItsBurstIsThereWhateverTheDecoderTookOfIt) {
    // Enough, of which the demuxer takes the most, and then no pause for a burst to end in.
    const std::string song = mediaText("mp3_cbr128.mp3");
    const std::string body = (song + song).substr(0, 60'000);
    std::atomic<bool> opened = false;
    ScriptedServer server([&](Peer& peer) {
        peer.send(kMp3Head + "\r\n" + body);
        for (std::size_t at = 0; !opened && peer.wait(5ms); at = (at + 1) % body.size()) {
            peer.send(body.substr(at, 1));
        }
    });
    NetOptions options = quickOptions();
    options.times.firstSound = 5s;
    NetRig rig(server.url(), options);
    const auto began = std::chrono::steady_clock::now();
    EXPECT_TRUE(rig.open());
    opened = true;
    EXPECT_LT(std::chrono::steady_clock::now() - began, options.times.firstSound / 2);
}

TEST(AStation, ThatFallsSilentIsGivenUpAndItsRestHeard) {
    const std::string body = mediaText("mp3_cbr128.mp3").substr(0, 20'000);
    ScriptedServer server([&](Peer& peer) {
        peer.send(kMp3Head + "\r\n" + body);
        peer.hold();
    });
    NetOptions options = quickOptions();
    options.times.silence = 200ms;
    NetRig rig(server.url(), options);
    EXPECT_GT(rig.readAll().size(), 44'100U);
    EXPECT_EQ(rig.report(false).stage, StreamStage::playing) << "not all of it was heard yet";
    EXPECT_EQ(rig.report().stage, StreamStage::stalled);
    EXPECT_EQ(rig.heard.bytes(), body);
    EXPECT_TRUE(soon([&] { return server.open() == 0 && rig.heard.ends() == 1; }));
}

TEST(AStation, WhoseGapLastsTooLongIsGivenUp) {
    // Too little comes to be heard, and never nothing for long.
    const std::string body = mediaText("mp3_cbr128.mp3");
    ScriptedServer server([&](Peer& peer) {
        peer.send(kMp3Head + "\r\n" + body.substr(0, 20'000));
        for (std::size_t at = 20'000; peer.wait(20ms) && peer.send(body.substr(at, 1)); ++at) {
        }
    });
    NetOptions options = quickOptions();
    options.times.gap = 300ms;
    NetRig rig(server.url(), options);
    EXPECT_GT(rig.readAll().size(), 44'100U);
    EXPECT_EQ(rig.report().stage, StreamStage::stalled);
    EXPECT_TRUE(soon([&] { return server.open() == 0; }));
}

TEST(AStation, ThatNobodyListensToIsLeftWhenItsBufferIsFull) {
    const std::string body = mediaText("mp3_cbr128.mp3");
    ScriptedServer server([&](Peer& peer) {
        peer.send(kMp3Head + "\r\n");
        while (peer.send(body)) {
        }
    });
    NetOptions options = quickOptions();
    options.times.idle = 200ms;
    NetRig rig(server.url(), options);
    ASSERT_TRUE(rig.open());
    EXPECT_TRUE(soon([&] { return server.open() == 0 && rig.heard.ends() == 1; }));
    EXPECT_GE(rig.report(false).bytes, options.mostBytes);
    EXPECT_LE(rig.report(false).bytes, options.mostBytes + 300'000);
}

TEST(AStation, ThatIsLostIsToldAsBroken) {
    ScriptedServer server([](Peer& peer) {
        peer.send("HTTP/1.1 200 OK\r\nContent-Type: audio/mpeg\r\nicy-br:128\r\n"
                  "Transfer-Encoding: chunked\r\n\r\nfffff\r\n" +
                  mediaText("mp3_cbr128.mp3").substr(0, 20'000));
    });
    NetRig rig(server.url());
    EXPECT_GT(rig.readAll().size(), 44'100U);
    EXPECT_EQ(rig.report().stage, StreamStage::ended);
    EXPECT_EQ(rig.report().trouble, StreamTrouble::broken);
    EXPECT_TRUE(rig.report().live);
}

TEST(AStation, ThatIsClosedHandsOverNothingMore) {
    std::atomic<bool> gone = false;
    ScriptedServer server([&](Peer& peer) {
        peer.send(kMp3Head + "\r\n" + mediaText("mp3_cbr128.mp3"));
        peer.hold();
        gone = true;
    });
    NetRig rig(server.url());
    ASSERT_TRUE(rig.open());
    rig.stream.close();
    EXPECT_TRUE(soon([&] { return gone.load(); }));
    const std::string heard = rig.heard.bytes();
    static_cast<void>(test::readAll(*rig.decoder)); // which ends
    std::this_thread::sleep_for(50ms);              // for what would come late
    EXPECT_EQ(rig.heard.ends(), 0);
    EXPECT_TRUE(rig.heard.bytes() == heard);
}

} // namespace
} // namespace tovik::sound
