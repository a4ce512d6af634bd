// SPDX-License-Identifier: GPL-3.0-or-later
#include "discs/CddbRequest.h"

#include <gtest/gtest.h>

namespace tovik::discs {
namespace {

const CddbPeers kPeers{.host = "db.example",
                       .mail = "me@home.example",
                       .client = "Tovik",
                       .version = "Tovik 0 Build 1"};

TEST(CddbRequest, asksForADisc) {
    EXPECT_EQ(queryUrl(kPeers, "2 150 22500 600"),
              "http://db.example/~cddb/cddb.cgi?cmd=cddb+query+05025602+2+150+22500+600"
              "&hello=me+home.example+Tovik+Tovik_0_Build_1&proto=6");
}

TEST(CddbRequest, asksForAnEntry) {
    EXPECT_EQ(readUrl(kPeers, "rock", "05025602"),
              "http://db.example/~cddb/cddb.cgi?cmd=cddb+read+rock+05025602"
              "&hello=me+home.example+Tovik+Tovik_0_Build_1&proto=6");
}

TEST(CddbRequest, withoutAMailNothingIsToldOfTheUser) {
    CddbPeers peers = kPeers;
    peers.mail.clear();
    peers.version.clear();
    EXPECT_EQ(readUrl(peers, "a", "b"), "http://db.example/~cddb/cddb.cgi?cmd=cddb+read+a+b"
                                        "&hello=anonymous+localhost+Tovik+0&proto=6");
    peers.mail = "me";
    EXPECT_NE(readUrl(peers, "a", "b").find("hello=me+localhost+"), std::string::npos);
}

TEST(CddbRequest, theHostMayHaveSchemePortAndPath) {
    CddbPeers peers = kPeers;
    peers.host = "127.0.0.1:8880";
    EXPECT_EQ(readUrl(peers, "a", "b").find("http://127.0.0.1:8880/~cddb/cddb.cgi?"), 0);
    peers.host = "https://db.example/";
    EXPECT_EQ(readUrl(peers, "a", "b").find("https://db.example/~cddb/cddb.cgi?"), 0);
    peers.host = "db.example/other.cgi";
    EXPECT_EQ(readUrl(peers, "a", "b").find("http://db.example/other.cgi?"), 0);
}

TEST(CddbRequest, noWordOfTheServerEndsTheCommand) {
    const std::string url = readUrl(kPeers, "ro ck&proto=1", "../\xC4\x8D+");
    EXPECT_NE(url.find("cmd=cddb+read+ro_ck%26proto%3D1+..%2F%C4%8D%2B&hello="), std::string::npos)
        << url;
}

TEST(CddbRequest, whatIsNoDiscIsNotAskedFor) {
    EXPECT_EQ(queryUrl(kPeers, ""), "");
    EXPECT_EQ(queryUrl(kPeers, "2 150 600&x"), "");
}

} // namespace
} // namespace tovik::discs
