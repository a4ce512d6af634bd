// SPDX-License-Identifier: GPL-3.0-or-later
#include "discs/FREEDB.h"

#include "support/host/ScriptedPump.h"
#include "support/sound/FakeSoundLibrary.h"
#include "support/sound/ScriptedServer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace tovik::test {
namespace {

using namespace std::chrono_literals;
using discs::QueryEnd;

const std::string kHead = "HTTP/1.0 200 OK\r\n\r\n";
const std::string kExact = "200 rock 05025602 A / B\r\n";
const std::string kList = "211 Found\r\nrock 05025602 A / B\r\nmisc 05025603 C / D\r\n.\r\n";
const std::string kDisc =
    "210 rock 05025602 follows\r\nDTITLE=A / B\r\nDYEAR=1999\r\nDGENRE=Rock\r\n"
    "TTITLE0=Čas\r\nTTITLE1=Two\r\n.\r\n";

class FREEDBTest : public testing::Test {
protected:
    FREEDBTest() {
        db_.ClientName = "Tovik";
        db_.ClientVersion = "Tovik 0 Build 1";
        sound_.drives.resize(1);
        sound_.drives.front().toc = FakeDiscs::discOf({200, 100});
    }

    /// A server that answers a query and a read so.
    void serve(const std::string& query, const std::string& read = kDisc) {
        server_.emplace([this, query, read](Peer& peer) {
            asked_.push_back(peer.path());
            const bool reads = peer.path().find("cddb+read") != std::string::npos;
            peer.send(kHead + (reads ? read : query));
        });
        db_.ServerHost = "127.0.0.1:" + std::to_string(server_->port());
    }

    int query() { return db_.Query(db_.DiscToc("D")); }

    void expectNothing() {
        EXPECT_EQ(db_.TrackCount(), 0);
        EXPECT_EQ(db_.AlbumTitle(), "");
        EXPECT_EQ(db_.AlbumArtist(), "");
    }

    ScriptedPump pump_;
    FakeSoundLibrary sound_;
    discs::FREEDB db_{{.drives = sound_, .pump = pump_}};
    std::vector<std::string> asked_; // one connection follows the other
    std::optional<ScriptedServer> server_;
};

TEST_F(FREEDBTest, namesTheDrives) {
    sound_.drives.resize(3);
    sound_.drives[1].letter = 4;
    sound_.drives[2].letter = 7;
    EXPECT_EQ(db_.CdDrives(), "D|E|H");
    sound_.drives[1].letter = -1;
    EXPECT_EQ(db_.CdDrives(), "D||H"); // each keeps its place
    sound_.drives[2].letter = -1;
    EXPECT_EQ(db_.CdDrives(), "D||");
    sound_.drives.clear();
    EXPECT_EQ(db_.CdDrives(), "");
}

TEST_F(FREEDBTest, namesTheDiscOfADrive) {
    sound_.drives.resize(2);
    sound_.drives[1].letter = 4;
    sound_.drives[1].toc = FakeDiscs::discOf({60});
    EXPECT_EQ(db_.DiscToc("D"), "2 150 15150 302");
    EXPECT_EQ(db_.DiscToc("E"), "1 150 62");
    EXPECT_EQ(db_.DiscToc("F"), "");
    EXPECT_EQ(db_.DiscToc(""), "");
    sound_.drives[0].ready = false;
    EXPECT_EQ(db_.DiscToc("D"), "");
}

TEST_F(FREEDBTest, oneExactMatchIsFetchedAndToBeStored) {
    serve(kExact);
    EXPECT_EQ(query(), 2);
    EXPECT_EQ(db_.lastEnd(), QueryEnd::stored);
    EXPECT_EQ(db_.AlbumArtist(), "A");
    EXPECT_EQ(db_.AlbumTitle(), "B");
    EXPECT_EQ(db_.AlbumYear(), "1999");
    EXPECT_EQ(db_.AlbumGenre(), "Rock");
    ASSERT_EQ(db_.TrackCount(), 2);
    EXPECT_EQ(db_.TrackTitle(1), "Čas");
    EXPECT_EQ(db_.TrackTitle(2), "Two");
    EXPECT_EQ(db_.TrackTitle(0), "");
    EXPECT_EQ(db_.TrackTitle(3), "");
    ASSERT_EQ(asked_.size(), 2);
    EXPECT_EQ(asked_[0].find("/~cddb/cddb.cgi?cmd=cddb+query+"), 0);
    EXPECT_NE(asked_[0].find("+2+150+15150+302&hello=anonymous+localhost+Tovik+Tovik_0_Build_1&"
                             "proto=6"),
              std::string::npos)
        << asked_[0];
    EXPECT_EQ(asked_[1].find("/~cddb/cddb.cgi?cmd=cddb+read+rock+05025602&"), 0);
}

TEST_F(FREEDBTest, ofSeveralTheOneThatIsPickedIsFetched) {
    serve(kList);
    std::vector<discs::Match> shown;
    db_.choose = [&shown](const std::vector<discs::Match>& matches) {
        shown = matches;
        return std::optional<std::size_t>(1);
    };
    EXPECT_EQ(query(), 1);
    EXPECT_EQ(db_.lastEnd(), QueryEnd::picked);
    EXPECT_EQ(db_.TrackCount(), 2);
    ASSERT_EQ(shown.size(), 2);
    EXPECT_EQ(shown[0].title, "A / B");
    EXPECT_NE(asked_.at(1).find("cddb+read+misc+05025603&"), std::string::npos);
}

TEST_F(FREEDBTest, whoHasClosedTheDialogIsNotAskedToPick) {
    discs::FREEDB* asker = nullptr;
    discs::FREEDB db{{.drives = sound_,
                      .pump = pump_,
                      .fetch = [&](const discs::TextRequest&, const std::stop_token&) {
                          asker->callOff(); // in the step in which the list arrives
                          return discs::Fetched{.end = discs::FetchEnd::complete, .text = kList};
                      }}};
    asker = &db;
    db.ServerHost = "db.example";
    int asked = 0;
    db.choose = [&asked](const std::vector<discs::Match>&) {
        ++asked;
        return std::optional<std::size_t>(0);
    };
    EXPECT_EQ(db.Query(db.DiscToc("D")), 0);
    EXPECT_EQ(db.lastEnd(), QueryEnd::calledOff);
    EXPECT_EQ(asked, 0);
}

TEST_F(FREEDBTest, noneIsPicked) {
    serve(kList);
    EXPECT_EQ(query(), 0) << "nobody can";
    EXPECT_EQ(db_.lastEnd(), QueryEnd::notPicked);
    db_.choose = [](const std::vector<discs::Match>&) { return std::nullopt; };
    EXPECT_EQ(query(), 0);
    db_.choose = [](const std::vector<discs::Match>&) { return std::optional<std::size_t>(2); };
    EXPECT_EQ(query(), 0);
    EXPECT_EQ(db_.lastEnd(), QueryEnd::notPicked);
    EXPECT_EQ(asked_.size(), 3);
    expectNothing();
}

TEST_F(FREEDBTest, whatServersSayInsteadOfAMatch) {
    struct Case {
        const char* query;
        const char* read;
        QueryEnd end;
    };

    for (const Case& c : {Case{"202 No match\r\n", "", QueryEnd::notFound},
                          Case{"403 Database entry is corrupt\r\n", "", QueryEnd::refused},
                          Case{"409 No handshake\r\n", "", QueryEnd::refused},
                          Case{"211 Found\r\nrock 0502", "", QueryEnd::refused},
                          Case{"211 Found\r\n.\r\n", "", QueryEnd::refused},
                          Case{"<html>", "", QueryEnd::refused}, Case{"", "", QueryEnd::refused},
                          Case{kExact.c_str(), "401 No such entry\r\n", QueryEnd::refused},
                          Case{kExact.c_str(), "403 Corrupt\r\n", QueryEnd::refused},
                          Case{kExact.c_str(), "210 x\r\nTTITLE0=a\r\n", QueryEnd::refused}}) {
        serve(c.query, c.read);
        EXPECT_EQ(query(), 0) << c.query;
        EXPECT_EQ(db_.lastEnd(), c.end) << c.query;
        expectNothing();
    }
}

TEST_F(FREEDBTest, tenMegabytesAreRefused) {
    serve("211 Found\r\n" + std::string(10UL * 1024 * 1024, 'x'));
    EXPECT_EQ(query(), 0);
    EXPECT_EQ(db_.lastEnd(), QueryEnd::refused);
}

TEST_F(FREEDBTest, anOlderAnswerIsForgotten) {
    serve(kExact);
    EXPECT_EQ(query(), 2);
    serve("202 No match\r\n");
    EXPECT_EQ(query(), 0);
    expectNothing();
}

TEST_F(FREEDBTest, withoutAHostNobodyIsAsked) {
    EXPECT_EQ(query(), 0);
    EXPECT_EQ(db_.lastEnd(), QueryEnd::noServer);
}

TEST_F(FREEDBTest, withoutADiscNobodyIsAsked) {
    serve(kExact);
    EXPECT_EQ(db_.Query(""), 0);
    EXPECT_EQ(db_.lastEnd(), QueryEnd::noDisc);
    EXPECT_EQ(server_->connections(), 0);
}

TEST_F(FREEDBTest, aRefusedConnection) {
    db_.ServerHost = "127.0.0.1:" + std::to_string(closedPort());
    EXPECT_EQ(query(), 0);
    EXPECT_EQ(db_.lastEnd(), QueryEnd::unreachable);
}

TEST_F(FREEDBTest, silenceIsGivenUp) {
    EXPECT_EQ(db_.patience, 10s);
    db_.patience = 60ms;
    server_.emplace([](Peer& peer) { peer.hold(); });
    db_.ServerHost = "127.0.0.1:" + std::to_string(server_->port());
    EXPECT_EQ(query(), 0);
    EXPECT_EQ(db_.lastEnd(), QueryEnd::noAnswer);
}

TEST_F(FREEDBTest, aFetchThatHeedsNoTimeIsGivenUpToo) {
    discs::FREEDB db{{.drives = sound_,
                      .pump = pump_,
                      .fetch = [](const discs::TextRequest&, const std::stop_token& stop) {
                          while (!stop.stop_requested()) {
                              std::this_thread::sleep_for(1ms);
                          }
                          return discs::Fetched{.end = discs::FetchEnd::calledOff};
                      }}};
    db.ServerHost = "db.example";
    db.patience = 60ms;
    EXPECT_EQ(db.Query(db.DiscToc("D")), 0);
    EXPECT_EQ(db.lastEnd(), QueryEnd::noAnswer);
}

// While the network is waited for, the rest of the program goes on; from there the query can be
// called off.
TEST_F(FREEDBTest, aQueryIsCalledOff) {
    server_.emplace([](Peer& peer) { peer.hold(); });
    db_.ServerHost = "127.0.0.1:" + std::to_string(server_->port());
    int second = -1;
    pump_.inStep = [&] {
        second = query();
        db_.callOff();
        return true;
    };
    EXPECT_EQ(query(), 0);
    EXPECT_EQ(second, 0) << "one at a time";
    EXPECT_EQ(db_.lastEnd(), QueryEnd::calledOff);
}

TEST_F(FREEDBTest, theEndOfTheProgramEndsAQuery) {
    server_.emplace([](Peer& peer) { peer.hold(); });
    db_.ServerHost = "127.0.0.1:" + std::to_string(server_->port());
    pump_.inStep = [] { return false; };
    EXPECT_EQ(query(), 0);
    EXPECT_EQ(db_.lastEnd(), QueryEnd::calledOff);
}

} // namespace
} // namespace tovik::test
