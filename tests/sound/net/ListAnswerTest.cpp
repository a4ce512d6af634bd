// SPDX-License-Identifier: GPL-3.0-or-later
// Stations whose address answers with a list.
#include "sound/net/NetRig.h"
#include "sound/net/StationLists.h"

namespace tovik::sound {
namespace {

using namespace test;

void answer(Peer& peer, const std::string& type, const std::string& body) {
    peer.send("HTTP/1.0 200 OK\r\nContent-Type: " + type +
              "\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body);
}

void sing(Peer& peer) {
    peer.send(kMp3Head + "icy-name:A\r\n\r\n" + mediaText("mp3_cbr128.mp3"));
}

TEST(AListAnswer, PlaysItsFirstAddressThatOpens) {
    const int closed = tovik::test::closedPort();
    ScriptedServer server([&](Peer& peer) {
        if (peer.path() == "/list") {
            answer(peer, "audio/x-mpegurl",
                   "http://127.0.0.1:" + std::to_string(closed) + "/\n/page\n/404\n/a\n/b\n");
        } else if (peer.path() == "/page") {
            answer(peer, "text/html", "<html>");
        } else if (peer.path() == "/404") {
            peer.send("HTTP/1.0 404 No\r\n\r\nno");
        } else {
            sing(peer);
        }
    });
    NetRig rig(server.url("/list"));
    EXPECT_FALSE(rig.readAll().empty());
    EXPECT_EQ(rig.report().finalAddress, server.url("/a"));
    EXPECT_EQ(server.connections(), 4);
    EXPECT_EQ(rig.heard.bytes(), mediaText("mp3_cbr128.mp3")) << "nothing of the list";
}

TEST(AListAnswer, IsToldByItsBytesUnderAnyType) {
    ScriptedServer server([&](Peer& peer) {
        if (peer.path() == "/pls") {
            answer(peer, "audio/mpeg", "[playlist]\nFile1=/m3u\n");
        } else if (peer.path() == "/m3u") {
            answer(peer, "text/plain", "#EXTM3U\n/a\n");
        } else {
            sing(peer);
        }
    });
    NetRig rig(server.url("/pls"));
    EXPECT_TRUE(rig.open());
}

/// Lists that lead to lists, `depth` of them before the station.
std::unique_ptr<ScriptedServer> nested(int depth) {
    return std::make_unique<ScriptedServer>([depth](Peer& peer) {
        if (peer.number() < depth) {
            answer(peer, "audio/x-mpegurl", "/" + std::to_string(peer.number()) + "\n");
        } else {
            sing(peer);
        }
    });
}

TEST(AListAnswer, IsFollowedThreeLevelsDeep) {
    const auto three = nested(3);
    EXPECT_TRUE(NetRig(three->url()).open());
    const auto four = nested(4);
    NetRig rig(four->url());
    EXPECT_FALSE(rig.open());
    EXPECT_EQ(rig.report().trouble, StreamTrouble::emptyList);
    EXPECT_EQ(four->connections(), 4);
}

TEST(AListAnswer, ThatNamesItselfEnds) {
    ScriptedServer server([](Peer& peer) { answer(peer, "audio/x-mpegurl", "/list\n"); });
    NetRig rig(server.url("/list"));
    EXPECT_FALSE(rig.open());
    EXPECT_EQ(rig.report().trouble, StreamTrouble::emptyList);
    EXPECT_EQ(server.connections(), kMostListDepth + 1);
}

TEST(AListAnswer, WhoseServersAreAwayIsNotEmpty) {
    const std::string closed =
        "http://127.0.0.1:" + std::to_string(tovik::test::closedPort()) + "/\n";
    const auto troubleOf = [](const std::string& list) {
        ScriptedServer server([&](Peer& peer) {
            if (peer.path() == "/list") {
                answer(peer, "audio/x-mpegurl", list);
            } else {
                peer.send("HTTP/1.0 404 No\r\n\r\n");
            }
        });
        NetRig rig(server.url("/list"));
        EXPECT_FALSE(rig.open());
        return rig.report().trouble;
    };
    EXPECT_EQ(troubleOf("/gone\n" + closed + "/gone\n"), StreamTrouble::refused);
    EXPECT_EQ(troubleOf(closed + "http://no.invalid/\n/gone"), StreamTrouble::refused);
    EXPECT_EQ(troubleOf("/gone\n"), StreamTrouble::httpError);
}

TEST(AListAnswer, WithoutEndIsReadAsFarAsItMayBe) {
    ScriptedServer server([](Peer& peer) {
        if (peer.path() != "/list") {
            sing(peer);
            return;
        }
        peer.send("HTTP/1.0 200 OK\r\nContent-Type: audio/x-mpegurl\r\n\r\n/a\n");
        while (peer.send(std::string(1000, '#') + "\n")) {
        }
    });
    NetRig rig(server.url("/list"));
    EXPECT_TRUE(rig.open());
}

TEST(AListAnswer, WithoutAnAddressIsEmpty) {
    for (const char* body : {"", "#EXTM3U\n", "ftp://a\nfile:///etc/passwd\n"}) {
        ScriptedServer server([&](Peer& peer) { answer(peer, "audio/x-mpegurl", body); });
        NetRig rig(server.url("/list"));
        EXPECT_FALSE(rig.open());
        EXPECT_EQ(rig.report().stage, StreamStage::failed);
        EXPECT_EQ(rig.report().httpStatus, 200);
    }
}

} // namespace
} // namespace tovik::sound
