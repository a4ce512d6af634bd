// SPDX-License-Identifier: GPL-3.0-or-later
#include "discs/FetchText.h"

#include "support/sound/ScriptedServer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace tovik::test {
namespace {

using namespace std::chrono_literals;
using discs::Fetched;
using discs::FetchEnd;

/// Far more than what is to happen takes.
constexpr auto kLong = 20s;

Fetched fetchAt(const std::string& url, std::chrono::milliseconds patience = kLong,
                const std::stop_token& stop = {}) {
    return discs::fetchText({.url = url, .patience = patience}, stop);
}

TEST(FetchText, aText) {
    ScriptedServer server([](Peer& peer) {
        peer.send("HTTP/1.0 200 OK\r\nContent-Type: text/plain\r\n\r\n200 x\r\n");
    });
    const Fetched fetched = fetchAt(server.url());
    EXPECT_EQ(fetched.end, FetchEnd::complete);
    EXPECT_EQ(fetched.text, "200 x\r\n");
}

TEST(FetchText, behindARedirect) {
    ScriptedServer server([](Peer& peer) {
        peer.send(peer.path() == "/" ? "HTTP/1.0 302 Found\r\nLocation: /there\r\n\r\n"
                                     : "HTTP/1.0 200 OK\r\n\r\nthere");
    });
    EXPECT_EQ(fetchAt(server.url()).text, "there");
}

TEST(FetchText, anotherStatusIsNoText) {
    for (const char* const status : {"404 Not Found", "500 Server Error", "204 No Content"}) {
        ScriptedServer server([status](Peer& peer) {
            peer.send("HTTP/1.0 " + std::string(status) + "\r\n\r\n200 rock 1 x\r\n");
        });
        const Fetched fetched = fetchAt(server.url());
        EXPECT_EQ(fetched.end, FetchEnd::refused) << status;
        EXPECT_EQ(fetched.text, "");
    }
}

TEST(FetchText, tenMegabytesAreNotTaken) {
    constexpr std::size_t kMegabyte = 1024UL * 1024;
    std::atomic<std::size_t> sent = 0;
    {
        ScriptedServer server([&sent](Peer& peer) {
            peer.send("HTTP/1.0 200 OK\r\n\r\n");
            const std::string piece(kMegabyte, 'x');
            for (int count = 0; count < 10 && peer.send(piece); ++count) {
                sent += piece.size();
            }
        });
        const Fetched fetched = fetchAt(server.url());
        EXPECT_EQ(fetched.end, FetchEnd::tooLarge);
        EXPECT_EQ(fetched.text, "");
    }
    EXPECT_LT(sent, 10 * kMegabyte) << "the connection was closed before";
}

TEST(FetchText, silenceIsGivenUp) {
    ScriptedServer server([](Peer& peer) { peer.hold(); });
    EXPECT_EQ(fetchAt(server.url(), 50ms).end, FetchEnd::noAnswer);
}

TEST(FetchText, aServerThatSendsByteByByteIsGivenUp) {
    ScriptedServer server([](Peer& peer) {
        peer.send("HTTP/1.0 200 OK\r\n\r\n");
        while (peer.send("x") && peer.wait(10ms)) {
        }
    });
    EXPECT_EQ(fetchAt(server.url(), 100ms).end, FetchEnd::noAnswer);
}

TEST(FetchText, nobodyListens) {
    const std::string port = std::to_string(closedPort());
    EXPECT_EQ(fetchAt("http://127.0.0.1:" + port + "/").end, FetchEnd::unreachable);
}

TEST(FetchText, aConnectionThatBreaksIsNoText) {
    ScriptedServer server(
        [](Peer& peer) { peer.send("HTTP/1.0 200 OK\r\nContent-Length: 100\r\n\r\n200 rock"); });
    const Fetched fetched = fetchAt(server.url());
    EXPECT_EQ(fetched.end, FetchEnd::unreachable);
    EXPECT_EQ(fetched.text, "");
}

TEST(FetchText, aStopEndsItAtOnce) {
    std::stop_source stop;
    ScriptedServer server([&stop](Peer& peer) {
        stop.request_stop();
        peer.hold();
    });
    EXPECT_EQ(fetchAt(server.url(), kLong, stop.get_token()).end, FetchEnd::calledOff);
}

} // namespace
} // namespace tovik::test
