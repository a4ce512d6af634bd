// SPDX-License-Identifier: GPL-3.0-or-later
// Streams that come in pieces, named by a list.
#include "sound/net/NetRig.h"
#include "sound/net/StationLists.h"

#include <atomic>
#include <cstdlib>
#include <map>

namespace tovik::sound {
namespace {

using namespace test;

/// A stream in pieces; the first one is what a decoder needs before them, if it needs anything.
using Pieces = std::vector<std::string>;

/// Files of the media cut by ffmpeg into pieces of a second.
Pieces cut(const std::string& options, const std::string& name, const std::string& head = {}) {
    const TemporaryFolder folder;
    const std::string command = "cd " + (folder / "") + " && ffmpeg -v error -nostdin -i " +
                                mediaPath("wav_s16_44100_stereo.wav") + " " + options;
    // NOLINTNEXTLINE(cert-env33-c,concurrency-mt-unsafe): its text is ours
    EXPECT_EQ(std::system(command.c_str()), 0);
    const auto text = [](const std::string& path) {
        std::string bytes;
        for (const std::byte byte : fileBytes(path)) {
            bytes.push_back(static_cast<char>(byte));
        }
        return bytes;
    };
    Pieces pieces;
    if (!head.empty()) {
        pieces.push_back(text(folder / head));
    }
    for (int i = 0; i < 3; ++i) {
        pieces.push_back(text(folder / ("a" + std::to_string(i) + name)));
    }
    return pieces;
}

/// The tag with the time that stands before each piece of packed sound.
Pieces tagged(Pieces pieces) {
    const std::string owner = "com.apple.streaming.transportStreamTimestamp";
    std::string frame = "PRIV";
    frame += std::string("\0\0\0\x35\0\0", 6) + owner + std::string(9, '\0');
    for (std::string& piece : pieces) {
        piece.insert(0,
                     std::string("ID3\4\0\0\0\0\0", 9) + static_cast<char>(frame.size()) + frame);
    }
    return pieces;
}

constexpr const char* kHls = "-f hls -hls_time 1 -hls_list_size 0 -hls_segment_filename ";

struct Packing {
    const char* name;
    const char* suffix;
    const char* type; ///< of the pieces
    Pieces (*pieces)();
    bool head = false;
};

class EachPacking : public testing::TestWithParam<Packing> {};

void answerAs(Peer& peer, const std::string& type, const std::string& body) {
    peer.send("HTTP/1.0 200 OK\r\nContent-Type: " + type +
              "\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body);
}

void answerList(Peer& peer, const std::string& body) {
    answerAs(peer, "application/vnd.apple.mpegurl", "#EXTM3U\n#EXT-X-TARGETDURATION:0\n" + body);
}

std::string joined(const Pieces& pieces) {
    std::string all;
    for (const std::string& piece : pieces) {
        all += piece;
    }
    return all;
}

TEST_P(EachPacking, SoundsAsLongAsItsSource) {
    const Pieces pieces = GetParam().pieces();
    ScriptedServer server([&](Peer& peer) {
        if (peer.path() == "/a/list") {
            std::string list = GetParam().head ? "#EXT-X-MAP:URI=\"/p/0.mp4\"\n" : "";
            for (std::size_t i = GetParam().head ? 1 : 0; i < pieces.size(); ++i) {
                list += "#EXTINF:1,\n../p/" + std::to_string(i) + GetParam().suffix + "\n";
            }
            answerList(peer, list + "#EXT-X-ENDLIST\n");
        } else {
            const std::string path = peer.path();
            const std::size_t slash = path.rfind('/');
            answerAs(peer, GetParam().type, pieces.at(std::stoul(path.substr(slash + 1))));
        }
    });
    NetRig rig(server.url("/a/list"));
    const auto frames = static_cast<double>(readAll(*openMedia("wav_s16_44100_stereo.wav")).size());
    EXPECT_NEAR(static_cast<double>(rig.readAll().size()), frames, 0.1 * frames);
    EXPECT_TRUE(soon([&] { return rig.heard.ends() == 1; }));
    EXPECT_TRUE(rig.heard.bytes() == joined(pieces));
    EXPECT_EQ(rig.report().stage, StreamStage::ended);
    EXPECT_EQ(rig.report().trouble, StreamTrouble::none);
    EXPECT_FALSE(rig.report().live);
    EXPECT_EQ(rig.report().finalAddress, server.url("/a/list"));
    EXPECT_EQ(server.connections(), static_cast<int>(pieces.size()) + 1);
}

Pieces transport() {
    return cut(std::string("-c:a aac ") + kHls + "a%d.ts l.m3u8", ".ts");
}

Pieces packedMp3() {
    return cut("-c:a libmp3lame -b:a 256k -write_xing 0 -id3v2_version 0 -f segment "
               "-segment_format mp3 -segment_time 1 a%d.mp3",
               ".mp3");
}

INSTANTIATE_TEST_SUITE_P(
    AStreamInPieces, EachPacking,
    testing::Values(
        Packing{"Transport", ".ts", "text/vnd.trolltech.linguist", &transport},
        Packing{
            "Mp3InTransport", ".ts", "video/MP2T",
            [] { return cut(std::string("-c:a libmp3lame ") + kHls + "a%d.ts l.m3u8", ".ts"); }},
        Packing{"Aac", ".aac", "audio/aac",
                [] {
                    return tagged(cut("-c:a aac -f segment -segment_format adts -segment_time 1 "
                                      "a%d.aac",
                                      ".aac"));
                }},
        Packing{"Mp3", ".mp3", "application/octet-stream", [] { return tagged(packedMp3()); }},
        Packing{"Fragments", ".m4s", "binary/octet-stream",
                [] {
                    return cut(std::string("-c:a aac -hls_segment_type fmp4 "
                                           "-hls_fmp4_init_filename head.mp4 ") +
                                   kHls + "a%d.m4s l.m3u8",
                               ".m4s", "head.mp4");
                },
                true}),
    [](const auto& packing) { return packing.param.name; });

/// A stream of MP3 pieces whose numbers the server counts itself.
class PieceServer {
public:
    /// What a list says, by how often it was asked for before; what a piece is, by its number.
    PieceServer(std::function<std::string(int)> list, std::function<void(Peer&, int)> piece)
        : server([this, list = std::move(list), piece = std::move(piece)](Peer& peer) {
              if (peer.path() == "/list") {
                  answerList(peer, list(lists++));
              } else {
                  ++asked;
                  piece(peer, std::stoi(peer.path().substr(1)));
              }
          }) {}

    std::atomic<int> lists = 0;
    std::atomic<int> asked = 0; ///< pieces
    ScriptedServer server;
};

/// Names pieces `first` to `last`.
std::string names(int first, int last) {
    std::string list = "#EXT-X-MEDIA-SEQUENCE:" + std::to_string(first) + "\n";
    for (int i = first; i <= last; ++i) {
        list += "#EXTINF:1,\n" + std::to_string(i) + ".mp3\n";
    }
    return list;
}

/// A second of MP3 that tells its number in the bytes that a player leaves out.
std::string second(int number) {
    return "[" + std::to_string(number) + "]" + mediaText("mp3_cbr128.mp3").substr(8000, 16'000);
}

void singSecond(Peer& peer, int number) {
    answerAs(peer, "audio/mpeg", second(number));
}

std::string seconds(const std::vector<int>& numbers) {
    std::string all;
    for (const int number : numbers) {
        all += second(number);
    }
    return all;
}

constexpr const char* kEnd = "#EXT-X-ENDLIST\n";

TEST(AStreamInPieces, FollowsAListThatMovesOn) {
    // It does so at every other look; at the end it jumps over pieces.
    PieceServer pieces(
        [](int look) {
            const int first = look < 10 ? 100 + look / 2 : 120;
            return names(first, first + 4) + (look < 10 ? "" : kEnd);
        },
        &singSecond);
    NetRig rig(pieces.server.url("/list"));
    EXPECT_GT(rig.readAll().size(), 10 * 2 * 44'100U);
    EXPECT_TRUE(soon([&] { return rig.heard.ends() == 1; }));
    EXPECT_TRUE(rig.heard.bytes() ==
                seconds({102, 103, 104, 105, 106, 107, 108, 120, 121, 122, 123, 124}));
    EXPECT_TRUE(rig.report().live);
    EXPECT_EQ(rig.report().stage, StreamStage::ended);
    EXPECT_EQ(rig.report().trouble, StreamTrouble::none);
}

TEST(AStreamInPieces, GoesOnWhenItsServerCountsAnew) {
    PieceServer pieces([](int look) { return look == 0 ? names(1000, 1004) : names(1, 5) + kEnd; },
                       &singSecond);
    NetRig rig(pieces.server.url("/list"));
    static_cast<void>(rig.readAll());
    EXPECT_TRUE(rig.heard.bytes() == seconds({1002, 1003, 1004, 1, 2, 3, 4, 5}));
}

TEST(AStreamInPieces, IsNotHeardTwiceWhenAnOldListIsAnswered) {
    PieceServer pieces(
        [](int look) {
            return look == 1 ? names(8, 12) : names(10 + look, 14 + look) + (look > 2 ? kEnd : "");
        },
        &singSecond);
    NetRig rig(pieces.server.url("/list"));
    static_cast<void>(rig.readAll());
    EXPECT_TRUE(rig.heard.bytes() == seconds({12, 13, 14, 15, 16, 17}));
}

TEST(AStreamInPieces, LeavesOutWhatItsServerDoesNotHave) {
    PieceServer pieces([](int) { return names(0, 5) + "#EXT-X-GAP\n#EXTINF:1,\n7.mp3\n" + kEnd; },
                       [](Peer& peer, int number) {
                           if (number == 0 || number == 2) {
                               peer.send("HTTP/1.0 404 No\r\nContent-Type: audio/mpeg\r\n\r\nno");
                           } else if (number == 3) {
                               answerAs(peer, "audio/mpeg", "<!DOCTYPE html><p>Not here");
                           } else if (number == 4) {
                               answerAs(peer, "audio/mpeg", "#EXTM3U\n#EXTINF:1,\n1.mp3\n");
                           } else {
                               singSecond(peer, number);
                           }
                       });
    NetRig rig(pieces.server.url("/list"));
    EXPECT_FALSE(rig.readAll().empty());
    EXPECT_TRUE(soon([&] { return rig.heard.ends() == 1; }));
    EXPECT_TRUE(rig.heard.bytes() == seconds({1, 5}));
    EXPECT_EQ(pieces.asked, 6) << "each once, and not the one that is missing";
    EXPECT_EQ(rig.report().trouble, StreamTrouble::none);
}

TEST(AStreamInPieces, WhosePiecesAreAllGoneIsNoStation) {
    PieceServer pieces([](int look) { return names(look, look + 100); },
                       [](Peer& peer, int) { peer.send("HTTP/1.0 404 No\r\n\r\n"); });
    NetRig rig(pieces.server.url("/list"));
    EXPECT_FALSE(rig.open());
    EXPECT_EQ(rig.report().trouble, StreamTrouble::httpError);
    EXPECT_EQ(rig.report().httpStatus, 404);
    EXPECT_EQ(pieces.asked, 8) << "the server is not asked without end";
}

TEST(AStreamInPieces, WithEmptyPiecesIsNoStation) {
    PieceServer pieces([](int) { return names(0, 5) + kEnd; },
                       [](Peer& peer, int) { answerAs(peer, "audio/mpeg", ""); });
    NetRig rig(pieces.server.url("/list"));
    EXPECT_FALSE(rig.open());
    EXPECT_EQ(rig.report().trouble, StreamTrouble::notAudio);
}

TEST(AStreamInPieces, AsksAgainForAPieceThatBreaks) {
    PieceServer pieces(
        [](int) { return names(0, 2) + kEnd; },
        [](Peer& peer, int number) {
            const std::string body = second(number);
            const std::size_t at = peer.request().find("Range: bytes=");
            if (at == std::string::npos) {
                peer.send(kMp3Head + "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" +
                          body.substr(0, 7001));
            } else {
                EXPECT_TRUE(peer.asks("Range: bytes=7001-"));
                peer.send("HTTP/1.0 206 Part\r\nContent-Range: bytes 7001-" +
                          std::to_string(body.size() - 1) + "/*\r\n\r\n" + body.substr(7001));
            }
        });
    NetRig rig(pieces.server.url("/list"));
    static_cast<void>(rig.readAll());
    EXPECT_TRUE(rig.heard.bytes() == seconds({0, 1, 2}));
    EXPECT_EQ(pieces.asked, 6);
}

TEST(AStreamInPieces, WhoseServerIsAwayForAMomentMissesNothing) {
    std::atomic<int> refused = 0;
    PieceServer pieces([](int) { return names(0, 3) + kEnd; },
                       [&](Peer& peer, int number) {
                           if (number == 2 && refused++ < 5) {
                               return; // it hangs up
                           }
                           singSecond(peer, number);
                       });
    NetRig rig(pieces.server.url("/list"));
    static_cast<void>(rig.readAll());
    EXPECT_TRUE(rig.heard.bytes() == seconds({0, 1, 2, 3}));
}

/// Pieces that are parts of one file, by a server that knows ranges, or none.
void demandParts(bool ranges) {
    const std::string body = seconds({0, 1, 2});
    ScriptedServer server([&](Peer& peer) {
        const std::string size = std::to_string(second(0).size());
        if (peer.path() == "/list") {
            answerList(peer, "#EXTINF:1,\n#EXT-X-BYTERANGE:" + size + "\nf.mp3\n#EXTINF:1,\n" +
                                 "#EXT-X-BYTERANGE:" + size + "\nf.mp3\n#EXTINF:1,\n" +
                                 "#EXT-X-BYTERANGE:" + size + "@0\nf.mp3\n" + kEnd);
        } else if (ranges) {
            const std::size_t at = peer.request().find("Range: bytes=") + 13;
            const std::size_t first = std::stoul(peer.request().substr(at));
            EXPECT_TRUE(peer.asks("Range: bytes=" + std::to_string(first) + "-" +
                                  std::to_string(first + second(0).size() - 1)));
            const std::string part = body.substr(first, second(0).size());
            peer.send("HTTP/1.0 206 Part\r\nContent-Type: audio/mpeg\r\nContent-Length: " + size +
                      "\r\nContent-Range: bytes " + std::to_string(first) + "-/*\r\n\r\n" + part);
        } else {
            answerAs(peer, "audio/mpeg", body);
        }
    });
    NetRig rig(server.url("/list"));
    static_cast<void>(rig.readAll());
    EXPECT_TRUE(rig.heard.bytes() == seconds({0, 1, 0}));
    EXPECT_EQ(server.connections(), 4);
}

TEST(AStreamInPieces, MayBePartsOfAFile) {
    demandParts(true);
    demandParts(false);
}

TEST(AStreamInPieces, IsHadInItsBestFormOfSoundThatSounds) {
    std::vector<std::string> asked;
    base::Mutex mutex;
    ScriptedServer server([&](Peer& peer) {
        {
            const base::MutexLock lock(mutex);
            asked.push_back(peer.path());
        }
        if (peer.path() == "/forms") {
            answerList(peer,
                       "#EXT-X-STREAM-INF:BANDWIDTH=800000,CODECS=\"avc1.1,mp4a.40.2\"\nseen\n"
                       "#EXT-X-STREAM-INF:BANDWIDTH=64000,CODECS=\"mp4a.40.2\"\n64\n"
                       "#EXT-X-STREAM-INF:BANDWIDTH=128000,CODECS=\"mp4a.40.2\"\n128\n"
                       "#EXT-X-STREAM-INF:BANDWIDTH=256000,CODECS=\"mp4a.40.2\"\n256\n");
        } else if (peer.path() == "/256") {
            answerList(peer, "#EXT-X-KEY:METHOD=AES-128,URI=\"k\"\n" + names(0, 1) + kEnd);
        } else if (peer.path() == "/128") {
            answerList(peer, "#EXTINF:1,\ngone.mp3\n" + std::string(kEnd));
        } else if (peer.path() == "/64") {
            answerList(peer, names(0, 1) + kEnd);
        } else if (peer.path() == "/gone.mp3") {
            peer.send("HTTP/1.0 404 No\r\n\r\n");
        } else {
            singSecond(peer, 0);
        }
    });
    NetRig rig(server.url("/forms"));
    EXPECT_FALSE(rig.readAll().empty());
    const base::MutexLock lock(mutex);
    EXPECT_EQ(asked, (std::vector<std::string>{"/forms", "/256", "/128", "/gone.mp3", "/64",
                                               "/0.mp3", "/1.mp3"}));
}

TEST(AStreamInPieces, LiesThreeListsDeepAtMost) {
    const auto nested = [](int depth) {
        return [depth](Peer& peer) {
            if (peer.number() < depth) {
                answerList(peer, "#EXT-X-STREAM-INF:BANDWIDTH=1\n/" +
                                     std::to_string(peer.number()) + "\n");
            } else if (peer.number() == depth) {
                answerList(peer, names(0, 1) + kEnd);
            } else {
                singSecond(peer, 0);
            }
        };
    };
    ScriptedServer three(nested(2));
    EXPECT_TRUE(NetRig(three.url()).open());
    ScriptedServer four(nested(3));
    NetRig rig(four.url());
    EXPECT_FALSE(rig.open());
    EXPECT_EQ(rig.report().trouble, StreamTrouble::emptyList);
    EXPECT_EQ(four.connections(), 4);
}

TEST(AStreamInPieces, LeadsNowhereButToHttp) {
    const TemporaryFolder folder;
    const std::string file = mediaPath("mp3_cbr128.mp3");
    for (const std::string& address :
         std::vector<std::string>{"file://" + file, "file:" + file, "concat:" + file + "|" + file,
                                  "data:audio/mpeg,x", "crypto:http://127.0.0.1/",
                                  "subfile,,start,0,,:" + file, "ftp://127.0.0.1/", "pipe:0"}) {
        ScriptedServer server([&](Peer& peer) {
            if (peer.path() == "/list") {
                answerList(peer, "#EXT-X-MAP:URI=\"" + address + "\"\n#EXTINF:1,\n" + address +
                                     "\n" + kEnd);
            } // whatever else is asked for is not there
        });
        NetRig rig(server.url("/list"));
        EXPECT_FALSE(rig.open()) << address;
        EXPECT_EQ(rig.report().stage, StreamStage::failed) << address;
        EXPECT_TRUE(rig.heard.bytes().empty()) << address;
    }
}

TEST(AStreamInPieces, ThatIsLockedIsNotPlayed) {
    PieceServer pieces(
        [](int) { return "#EXT-X-KEY:METHOD=AES-128,URI=\"k\"\n" + names(0, 4) + kEnd; },
        &singSecond);
    NetRig rig(pieces.server.url("/list"));
    EXPECT_FALSE(rig.open());
    EXPECT_EQ(rig.report().trouble, StreamTrouble::notAudio);
    EXPECT_EQ(pieces.server.connections(), 1);
}

TEST(AStreamInPieces, OfAListWithoutEndIsThatOfItsBeginning) {
    ScriptedServer server([](Peer& peer) {
        if (peer.path() != "/list") {
            singSecond(peer, 0);
            return;
        }
        peer.send("HTTP/1.0 200 OK\r\nContent-Type: application/vnd.apple.mpegurl\r\n\r\n"
                  "#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXTINF:1,\n0.mp3\n");
        while (peer.send(std::string(1000, '#') + "\n")) {
        }
    });
    NetRig rig(server.url("/list"));
    EXPECT_FALSE(rig.readAll().empty());
    EXPECT_EQ(server.connections(), 2);
}

TEST(AStreamInPieces, IsOnlyFollowedAsAList) {
    std::atomic<bool> first = true;
    ScriptedServer server([&](Peer& peer) {
        if (peer.path() != "/list") {
            singSecond(peer, std::stoi(peer.path().substr(1)));
        } else if (first.exchange(false)) {
            answerList(peer, names(0, 2));
        } else {
            peer.send(kMp3Head + "icy-name:A\r\n\r\n");
            while (peer.send(second(9))) {
            }
        }
    });
    NetRig rig(server.url("/list"));
    EXPECT_FALSE(rig.readAll().empty());
    EXPECT_TRUE(rig.heard.bytes() == seconds({0, 1, 2}));
    EXPECT_EQ(rig.report().stage, StreamStage::ended);
    EXPECT_EQ(rig.report().trouble, StreamTrouble::broken);
}

TEST(AStreamInPieces, WhoseListStandsStillIsStalled) {
    PieceServer pieces([](int) { return names(0, 2); }, &singSecond);
    NetOptions options = quickOptions();
    options.times.gap = 300ms;
    NetRig rig(pieces.server.url("/list"), options);
    EXPECT_GT(rig.readAll().size(), 2 * 2 * 44'100U);
    EXPECT_EQ(rig.report().stage, StreamStage::stalled);
    EXPECT_EQ(pieces.asked, 3);
    EXPECT_TRUE(soon([&] { return pieces.server.open() == 0 && rig.heard.ends() == 1; }));
}

TEST(AStreamInPieces, IsLeftAtOnceWhileNewsAreWaitedFor) {
    PieceServer pieces([](int) { return names(0, 2); }, &singSecond);
    NetOptions options = quickOptions();
    options.times.resume = 1h;
    NetRig rig(pieces.server.url("/list"), options);
    ASSERT_TRUE(rig.open());
    ASSERT_TRUE(soon([&] { return pieces.asked == 3 && pieces.server.open() == 0; }));
    EXPECT_EQ(pieces.lists, 1);
    const auto begin = std::chrono::steady_clock::now();
    rig.stop.request_stop();
    EXPECT_TRUE(soon([&] { return rig.heard.ends() == 1; }));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, kAtOnce);
}

} // namespace
} // namespace tovik::sound
