// SPDX-License-Identifier: GPL-3.0-or-later
// Files that a server has: they end, and their breaks are mended.
#include "sound/net/NetRig.h"

namespace tovik::sound {
namespace {

using namespace test;

/// Of a file of the media, from a byte on.
std::string part(const std::string& body, std::size_t from) {
    return "HTTP/1.1 206 Partial Content\r\nContent-Type: audio/mpeg\r\nContent-Length: " +
           std::to_string(body.size() - from) + "\r\nContent-Range: bytes " + std::to_string(from) +
           "-" + std::to_string(body.size() - 1) + "/" + std::to_string(body.size()) + "\r\n\r\n" +
           body.substr(from);
}

std::string whole(const std::string& body) {
    return "HTTP/1.1 200 OK\r\nContent-Type: audio/mpeg\r\nContent-Length: " +
           std::to_string(body.size()) + "\r\n\r\n" + body;
}

/// What stands between "Range: bytes=" and "-".
std::size_t rangeOf(const Peer& peer) {
    const std::size_t at = peer.request().find("Range: bytes=");
    return at == std::string::npos ? 0 : std::stoul(peer.request().substr(at + 13));
}

TEST(AFileOverHttp, IsNoStationAndEnds) {
    const std::string body = mediaText("mp3_cbr128.mp3");
    ScriptedServer server([&](Peer& peer) { peer.send(whole(body)); });
    NetRig rig(server.url());
    EXPECT_FALSE(rig.readAll().empty());
    EXPECT_FALSE(rig.report().live);
    EXPECT_EQ(rig.report().stage, StreamStage::ended);
    EXPECT_EQ(rig.report().trouble, StreamTrouble::none);
    EXPECT_EQ(rig.heard.bytes(), body);
    EXPECT_EQ(server.connections(), 1);
}

TEST(AFileOverHttp, ThatBreaksGoesOnWhereItBroke) {
    const std::string body = mediaText("mp3_cbr128.mp3");
    ScriptedServer server([&](Peer& peer) {
        const std::size_t from = rangeOf(peer);
        const std::string answer = peer.number() == 0 ? whole(body) : part(body, from);
        peer.send(answer.substr(0, answer.find("\r\n\r\n") + 4 + 7001));
    });
    NetRig rig(server.url());
    const std::vector<float> heard = rig.readAll();
    EXPECT_EQ(rig.heard.bytes(), body);
    EXPECT_EQ(rig.heard.ends(), 1);
    EXPECT_EQ(rig.report().trouble, StreamTrouble::none);
    EXPECT_EQ(server.connections(), static_cast<int>(body.size() / 7001 + 1));
    ScriptedServer good([&](Peer& peer) { peer.send(whole(body)); });
    EXPECT_EQ(heard, NetRig(good.url()).readAll());
}

TEST(AFileOverHttp, GoesOnWithAServerThatKnowsNoRanges) {
    const std::string body = mediaText("mp3_cbr128.mp3");
    ScriptedServer server([&](Peer& peer) {
        const std::string answer = whole(body);
        peer.send(peer.number() == 0 ? answer.substr(0, answer.size() / 2) : answer);
    });
    NetRig rig(server.url());
    static_cast<void>(rig.readAll());
    EXPECT_EQ(rig.heard.bytes(), body);
    EXPECT_EQ(server.connections(), 2);
}

TEST(AFileOverHttp, ThatIsAnotherNowIsOver) {
    const std::string body = mediaText("mp3_cbr128.mp3");
    ScriptedServer server([&](Peer& peer) {
        const std::string answer = whole(body);
        if (peer.number() == 0) {
            peer.send(answer.substr(0, answer.size() / 2));
        } else {
            peer.send(whole(body + body));
        }
    });
    NetRig rig(server.url());
    EXPECT_FALSE(rig.readAll().empty());
    EXPECT_EQ(rig.report().stage, StreamStage::ended);
    EXPECT_EQ(rig.report().trouble, StreamTrouble::broken);
    EXPECT_EQ(server.connections(), 2);
}

TEST(AFileOverHttp, IsAskedForAgainWhenItsServerHangs) {
    const std::string body = mediaText("mp3_cbr128.mp3");
    ScriptedServer server([&](Peer& peer) {
        if (peer.number() > 0) {
            peer.send(part(body, rangeOf(peer)));
            return;
        }
        const std::string answer = whole(body);
        peer.send(answer.substr(0, answer.size() / 2));
        peer.hold();
    });
    NetOptions options = quickOptions();
    options.times.silence = 100ms;
    NetRig rig(server.url(), options);
    static_cast<void>(rig.readAll());
    EXPECT_EQ(rig.heard.bytes(), body);
}

TEST(AFileOverHttp, WhoseServerIsGoneIsOverAfterSomeTries) {
    const std::string body = mediaText("mp3_cbr128.mp3");
    ScriptedServer server([&](Peer& peer) {
        if (peer.number() == 0) {
            peer.send(whole(body).substr(0, 30'000));
        }
    });
    NetRig rig(server.url());
    EXPECT_FALSE(rig.readAll().empty());
    EXPECT_EQ(rig.report().trouble, StreamTrouble::broken);
    EXPECT_EQ(server.connections(), 9);
}

TEST(AFileOverHttp, ThatIsPausedGoesOnAfterwards) {
    std::string body;
    while (body.size() < 8'000'000) { // more than a system buffers
        body += mediaText("mp3_cbr128.mp3");
    }
    ScriptedServer server([&](Peer& peer) {
        peer.send(peer.number() == 0 ? whole(body) : part(body, rangeOf(peer)));
    });
    NetOptions options = quickOptions();
    options.mostBytes = 65'536;
    options.times.idle = 50ms;
    NetRig rig(server.url(), options);
    ASSERT_TRUE(rig.open());
    ASSERT_TRUE(soon([&] { return server.open() == 0; }));
    const std::size_t heard = test::readAll(*rig.decoder).size();
    EXPECT_GE(server.connections(), 2);
    EXPECT_EQ(rig.report().trouble, StreamTrouble::none);
    ScriptedServer good([&](Peer& peer) { peer.send(whole(body)); });
    EXPECT_EQ(heard, NetRig(good.url()).readAll(heard).size()) << "nothing is left out";
}

} // namespace
} // namespace tovik::sound
