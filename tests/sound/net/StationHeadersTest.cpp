// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/net/StationHeaders.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace tovik::sound {
namespace {

StationHeaders headersOf(std::initializer_list<std::string_view> lines) {
    HeaderReader reader;
    for (const std::string_view line : lines) {
        EXPECT_TRUE(reader.add(line));
    }
    return reader.headers();
}

TEST(StationHeadersOf, AStationAreReadWhateverTheirCase) {
    const StationHeaders headers =
        headersOf({"HTTP/1.1 200 OK", "Content-Type: Audio/MPEG; charset=x", "icy-metaint:16000",
                   "ICY-BR: 128,128", "icy-name:A station"});
    EXPECT_EQ(headers.status, 200);
    EXPECT_EQ(headers.contentType, "audio/mpeg");
    EXPECT_EQ(headers.metaInterval, 16000U);
    EXPECT_EQ(headers.kbps, 128);
    EXPECT_TRUE(headers.live());
}

TEST(StationHeadersOf, AnOldServerBeginWithIcy) {
    const StationHeaders headers = headersOf({"ICY 200 OK", "icy-name:A"});
    EXPECT_EQ(headers.status, 200);
    EXPECT_EQ(headers.tags, std::string("ICY 200 OK\0icy-name:A\0", 22));
}

TEST(StationHeadersOf, ARedirectAreForgotten) {
    const StationHeaders headers = headersOf({"HTTP/1.1 302 Found", "Location: /b", "icy-name:old",
                                              "", "HTTP/1.1 200 OK", "Content-Length: 5", ""});
    EXPECT_EQ(headers.tags, std::string("HTTP/1.1 200 OK\0Content-Length: 5\0", 34));
    EXPECT_FALSE(headers.live());
    EXPECT_EQ(headers.length, 5U);
}

TEST(StationHeadersOf, AFileWithIcyHeadersAreThoseOfAStation) {
    EXPECT_TRUE(headersOf({"HTTP/1.0 200 OK", "Content-Length: 5", "icy-br:64"}).live());
    EXPECT_TRUE(headersOf({"HTTP/1.0 200 OK"}).live());
}

TEST(StationHeadersOf, AChunkedAnswerHaveNoLength) {
    EXPECT_FALSE(
        headersOf({"HTTP/1.1 200 OK", "Transfer-Encoding: chunked", "Content-Length: 5"}).length);
    EXPECT_FALSE(
        headersOf({"HTTP/1.1 200 OK", "Content-Length: 5", "Transfer-Encoding: chunked"}).length);
}

TEST(StationHeadersOf, APartTellWhereItBegins) {
    const StationHeaders headers =
        headersOf({"HTTP/1.1 206 Partial Content", "Content-Range: bytes 100-199/200"});
    EXPECT_EQ(headers.firstByte, 100U);
}

TEST(StationHeadersOf, NonsenseCountAsNotTold) {
    const StationHeaders headers =
        headersOf({"HTTP/1.1", "icy-metaint: -5", "icy-br: 99999999999999999999", "icy-br:0",
                   "Content-Length: many", "Content-Range: bytes", ":", "no colon"});
    EXPECT_EQ(headers.status, 0);
    EXPECT_EQ(headers.metaInterval, 0U);
    EXPECT_EQ(headers.kbps, 0);
    EXPECT_FALSE(headers.length);
    EXPECT_EQ(headers.firstByte, 0U);
}

TEST(StationHeadersOf, ALineWithANulEndThere) {
    const StationHeaders headers =
        headersOf({"HTTP/1.1 200 OK", std::string_view("icy-name:A\0B", 12)});
    EXPECT_EQ(headers.tags, std::string("HTTP/1.1 200 OK\0icy-name:A\0", 27));
}

TEST(StationHeadersOf, AnEndlessHeadAreRefused) {
    HeaderReader many;
    std::size_t lines = 0;
    while (lines < 2 * HeaderReader::kMostLines && many.add("a: b")) {
        ++lines;
    }
    EXPECT_EQ(lines, HeaderReader::kMostLines);
    HeaderReader large;
    EXPECT_TRUE(large.add(std::string(HeaderReader::kMostBytes / 2, 'a')));
    EXPECT_FALSE(large.add(std::string(HeaderReader::kMostBytes / 2, 'a')));
}

} // namespace
} // namespace tovik::sound
