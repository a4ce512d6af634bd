// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/net/StationLists.h"

#include <gtest/gtest.h>

namespace tovik::sound {
namespace {

using Addresses = std::vector<std::string>;
constexpr const char* kBase = "http://host:80/dir/list.m3u?q=/x";

TEST(AddressesOfAList, AreThoseOfAnM3u) {
    EXPECT_EQ(addressesOfList("\xEF\xBB\xBF#EXTM3U\r\n#EXTINF:-1,A\r\n http://a/1 \r\n\r\nb.mp3\n"
                              "ftp://c/\nfile:///etc/passwd\n/d\n//e/f\nHTTPS://g",
                              kBase),
              (Addresses{"http://a/1", "http://host:80/dir/b.mp3", "http://host:80/d", "http://e/f",
                         "HTTPS://g"}));
}

TEST(AddressesOfAList, AreThoseOfAPlsInTheOrderOfTheirNumbers) {
    EXPECT_EQ(addressesOfList("\n[Playlist]\nFile10=http://c\nfile2 = http://b\nFile1=http://a\n"
                              "Title1=http://t\nFileX=http://x\nFile=http://y\nFile3=\n",
                              kBase),
              (Addresses{"http://a", "http://b", "http://c"}));
}

TEST(AddressesOfAList, AreNoneOfNothing) {
    EXPECT_EQ(addressesOfList("", kBase), Addresses{});
    EXPECT_EQ(addressesOfList("[playlist]", kBase), Addresses{});
    EXPECT_EQ(addressesOfList("#only\n#remarks", kBase), Addresses{});
}

TEST(AddressesOfAList, AreLimited) {
    std::string text;
    for (int i = 0; i < 1000; ++i) {
        text += "http://a/" + std::to_string(i) + "\n";
    }
    EXPECT_EQ(addressesOfList(text, kBase).size(), 64U);
    const std::string late = std::string(kMostListBytes, '#') + "\nhttp://late";
    EXPECT_EQ(addressesOfList(late, kBase), Addresses{});
}

TEST(WholeAddress, IsSeenFromItsBase) {
    EXPECT_EQ(wholeAddress("http://host", "a"), "http://host/a");
    EXPECT_EQ(wholeAddress("http://host?x/y", "a"), "http://host/a");
    EXPECT_EQ(wholeAddress("https://host/a/b#c/d", "e"), "https://host/a/e");
    EXPECT_EQ(wholeAddress("", "a"), "");
    EXPECT_EQ(wholeAddress("http://host/a/b?c", "?d"), "http://host/a/b?d");
    EXPECT_EQ(wholeAddress("http://host/", ""), "");
    EXPECT_EQ(wholeAddress("http://host/", "//"), "");
    EXPECT_EQ(wholeAddress("http://host/", "/play?u=http://b"), "http://host/play?u=http://b");
}

TEST(WholeAddress, IsNoneOfAnotherScheme) {
    for (const char* other : {"javascript://x", "file:///etc/passwd", "file:/etc/passwd",
                              "concat:a|b", "data:audio/mpeg,x", "a+b-c.1:x", "http:x"}) {
        EXPECT_EQ(wholeAddress("http://host/", other), "") << other;
    }
    EXPECT_EQ(wholeAddress("http://host/", "./a:b"), "http://host/./a:b");
    EXPECT_EQ(wholeAddress("http://host/", "1:b"), "http://host/1:b");
}

TEST(HttpAddress, HasASchemeAndMore) {
    EXPECT_TRUE(isHttpAddress("http://a"));
    EXPECT_TRUE(isHttpAddress("HTTPS://a"));
    for (const char* other : {"", "http://", "http:/a", "ftp://a", "file:///a", " http://a"}) {
        EXPECT_FALSE(isHttpAddress(other)) << other;
    }
}

TEST(KindOfAnAnswer, IsToldByItsBytesBeforeItsType) {
    EXPECT_EQ(kindOfAnswer("audio/mpeg", "\xFF\xFB\x90", false), AnswerKind::sound);
    EXPECT_EQ(kindOfAnswer("audio/mpeg", "[playlist]\n", false), AnswerKind::list);
    EXPECT_EQ(kindOfAnswer("text/html", "#EXTM3U\n", false), AnswerKind::list);
    EXPECT_EQ(kindOfAnswer("audio/mpeg", "\n <!DOCTYPE html>", false), AnswerKind::page);
    EXPECT_EQ(kindOfAnswer("audio/x-scpls", "<html>", false), AnswerKind::page);
    EXPECT_EQ(kindOfAnswer("text/html", "OggS", false), AnswerKind::page);
    EXPECT_EQ(kindOfAnswer("", "OggS", false), AnswerKind::sound);
    EXPECT_EQ(kindOfAnswer("audio/x-mpegurl", "http://a", false), AnswerKind::list);
    EXPECT_EQ(kindOfAnswer("text/plain", "http://a\n", false), AnswerKind::list);
    EXPECT_EQ(kindOfAnswer("application/octet-stream", "\r\nHTTPS://a", false), AnswerKind::list);
    EXPECT_EQ(kindOfAnswer("text/plain", "http: a word", true), AnswerKind::page);
}

TEST(AddressesOfAList, TakeLittleMemoryWhateverItsOwnAddressIs) {
    std::string m3u;
    std::string pls = "[playlist]\n";
    for (int i = 0; m3u.size() < kMostListBytes / 2; ++i) {
        m3u += "a\n";
        pls += "file" + std::to_string(i) + "=a\n";
    }
    const std::string base = "http://host/" + std::string(kMostListBytes, 'x') + "/";
    EXPECT_EQ(addressesOfList(m3u, base).size(), kMostAddresses);
    EXPECT_EQ(addressesOfList(pls, base).size(), kMostAddresses);
}

TEST(KindOfAnAnswer, WaitsForAsManyBytesAsItNeeds) {
    EXPECT_EQ(kindOfAnswer("audio/mpeg", "", false), AnswerKind::unsure);
    EXPECT_EQ(kindOfAnswer("audio/mpeg", "<!d", false), AnswerKind::unsure);
    EXPECT_EQ(kindOfAnswer("audio/mpeg", "[playlis", false), AnswerKind::unsure);
    EXPECT_EQ(kindOfAnswer("audio/mpeg", "https:/", false), AnswerKind::unsure);
    EXPECT_EQ(kindOfAnswer("audio/mpeg", "<!d", true), AnswerKind::sound);
}

TEST(ListOfPieces, IsToldByItsRemarks) {
    EXPECT_TRUE(isListOfPieces("#EXTM3U\n#EXT-X-TARGETDURATION:10\na.ts"));
    EXPECT_FALSE(isListOfPieces("#EXTM3U\n#EXTINF:1,a\nhttp://a"));
}

} // namespace
} // namespace tovik::sound
