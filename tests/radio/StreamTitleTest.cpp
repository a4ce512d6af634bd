// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/StreamTitle.h"

#include <gtest/gtest.h>

namespace tovik::radio {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

std::string titleOf(std::string_view metadata) {
    const StreamTitle title = streamTitle(metadata);
    EXPECT_EQ(title.answer, TitleAnswer::title) << metadata;
    return std::string(title.title);
}

TEST(StreamTitleTest, theTitleStandsBetweenMarkAndSemicolon) {
    EXPECT_EQ(titleOf("StreamTitle='Ann - Song';StreamUrl='http://x';"), "Ann - Song");
    EXPECT_EQ(titleOf("StreamTitle='';StreamUrl='';"), "");
    EXPECT_EQ(titleOf("StreamTitle='Don't';"), "Don't");
    EXPECT_EQ(titleOf("StreamTitle='" + std::string(4080, 'x') + "';"), std::string(4080, 'x'));
}

TEST(StreamTitleTest, aSemicolonInATitleCutsItAndTheCharacterBefore) {
    EXPECT_EQ(titleOf("StreamTitle='AB; C';"), "A");
}

TEST(StreamTitleTest, aWholeTitleEndsAtQuoteAndSemicolon) {
    EXPECT_EQ(streamTitle("StreamTitle='AB; C';StreamUrl='x';", true).title, "AB; C");
    EXPECT_EQ(streamTitle("StreamTitle='Don't; stop';", true).title, "Don't; stop");
    EXPECT_EQ(streamTitle("StreamTitle='';", true).answer, TitleAnswer::title);
    EXPECT_EQ(streamTitle("StreamTitle='no end;", true).answer, TitleAnswer::broken);
    EXPECT_EQ(shownTitle("StreamTitle='a;b &amp; c';", true), "a;b & c");
    EXPECT_EQ(shownTitle("StreamTitle='a;b", true), std::nullopt);
}

TEST(StreamTitleTest, metadataWithoutTheMarkSaysNothing) {
    for (const std::string_view metadata :
         {""sv, "StreamTitle="sv, "streamtitle='x';"sv, "StreamUrl='y';StreamTitle='x';"sv,
          "\0StreamTitle='x';"sv}) {
        EXPECT_EQ(streamTitle(metadata).answer, TitleAnswer::none) << metadata;
    }
}

TEST(StreamTitleTest, aTitleWithoutAnEndIsBroken) {
    for (const std::string_view metadata :
         {"StreamTitle='"sv, "StreamTitle='no end"sv, "StreamTitle='no end'"sv, "StreamTitle=';"sv,
          "StreamTitle='cut\0';"sv}) {
        EXPECT_EQ(streamTitle(metadata).answer, TitleAnswer::broken) << metadata;
    }
}

TEST(StationNameTest, theNameIsBehindItsHeader) {
    EXPECT_EQ(stationName("HTTP/1.0 200 OK\0icy-br:128\0icy-name:Jazz FM\0\0"sv), "Jazz FM");
    EXPECT_EQ(stationName("ICY 200 OK\0icy-name:One\0icy-name:Two\0\0"sv), "Two");
    EXPECT_EQ(stationName("ICY 200 OK\0icy-name:\0\0"sv), "");
}

TEST(StationNameTest, theStatusLineOtherCaseAndWhatIsBehindTheEndCountForNothing) {
    EXPECT_EQ(stationName("icy-name:status\0x:y\0\0"sv), std::nullopt);
    EXPECT_EQ(stationName("ICY 200 OK\0Icy-Name:x\0 icy-name:y\0\0"sv), std::nullopt);
    EXPECT_EQ(stationName("ICY 200 OK\0\0icy-name:x\0\0"sv), std::nullopt);
    EXPECT_EQ(stationName(""), std::nullopt);
    EXPECT_EQ(stationName("ICY 200 OK\0icy-name:no end"sv), "no end");
}

TEST(CleanNameTest, onlyTheTenSignsAreDropped) {
    EXPECT_EQ(CleanName("a:b/c\\d?e*f|g<h>i\"j"), "abcdefghij");
    EXPECT_EQ(CleanName(" A'b;c.. \xC3\x84 "), " A'b;c.. \xC3\x84 ");
    EXPECT_EQ(CleanName(":/\\?*|<>\""), "");
}

TEST(SongFileNameTest, nothingLeadsOutOfTheFolder) {
    EXPECT_EQ(songFileName("../../x"), "....x.mp3");
    EXPECT_EQ(songFileName(".."), "...mp3");
    EXPECT_EQ(songFileName("/etc/x"), "etcx.mp3");
    EXPECT_EQ(songFileName("CON"), "CON.mp3");
    EXPECT_EQ(songFileName(""), ".mp3");
}

TEST(SongFileNameTest, theNameIsAsLongAsAFileSystemTakes) {
    EXPECT_EQ(songFileName(std::string(4080, 'x')), std::string(251, 'x') + ".mp3");
    EXPECT_EQ(songFileName(std::string(250, 'x') + "\xC3\x84"), std::string(250, 'x') + ".mp3");
    EXPECT_EQ(songFileName(std::string(249, 'x') + "\xC3\x84"),
              std::string(249, 'x') + "\xC3\x84.mp3");
}

TEST(SongFileNameTest, theNameIsUtf8) {
    EXPECT_EQ(songFileName("\xC4"), "\xC3\x84.mp3");
    // Each byte becomes two: the cut still is at a character.
    std::string bytes;
    for (int i = 0; i < 200; ++i) {
        bytes += '\xC4';
    }
    EXPECT_EQ(songFileName(bytes).size(), 254U);
}

TEST(ShownTextTest, bytesAreUtf8OrElseWindows1252WithoutControls) {
    EXPECT_EQ(shownText("\xC3\x84"), "\xC3\x84");
    EXPECT_EQ(shownText("\xC4"), "\xC3\x84");
    EXPECT_EQ(shownText(" a\r\nb\tc\x7F "), "abc");
    EXPECT_EQ(shownText("a\xC2\x85z\xC2\xA0!"), "az\xC2\xA0!");
    EXPECT_EQ(shownText("\0x"sv), "x");
}

TEST(ShownTextTest, referencesForCharactersAreThoseOfAServerAlone) {
    EXPECT_EQ(shownText("a &amp; b"), "a &amp; b");
    EXPECT_EQ(shownServerText("a &amp; b"), "a & b");
    EXPECT_EQ(shownServerText("&#1046;&#x416;&#X416; &lt;&gt;&quot;&apos;"),
              "\xD0\x96\xD0\x96\xD0\x96 <>\"'");
    EXPECT_EQ(shownServerText("\xC4 &#228; &#128512;"), "\xC3\x84 \xC3\xA4 \xF0\x9F\x98\x80");
    EXPECT_EQ(shownServerText("don&#146;t"), "don\xE2\x80\x99t") << "as pages have it";
    EXPECT_EQ(shownServerText("a&#10;b&#0x;&#7;"), "ab&#0x;") << "controls are dropped";
    EXPECT_EQ(shownServerText("&amp;lt;"), "&lt;") << "once";
}

TEST(ShownTextTest, whatIsNoReferenceStays) {
    for (const char* raw : {"&", "&;", "&#;", "&#x;", "&#-1;", "&#0;", "&#xD800;", "&#1114112;",
                            "&#99999999999;", "&nbsp;", "&AMP;", "&amp", "& amp;", "&#1 2;"}) {
        EXPECT_EQ(shownServerText(raw), raw);
    }
}

TEST(ShownTitleTest, isTheTitleWithItsReferences) {
    EXPECT_EQ(shownTitle("StreamTitle='A &amp; B - &#1046;';StreamUrl='';"), "A & B - \xD0\x96");
    EXPECT_EQ(shownTitle("StreamTitle='';"), "");
    EXPECT_EQ(shownTitle("StreamTitle='a;b';"), "") << "a semicolon of its own ends it";
    EXPECT_EQ(shownTitle("StreamTitle='ab&c;d';"), "ab&");
    EXPECT_EQ(shownTitle("StreamTitle='x"), std::nullopt);
    EXPECT_EQ(shownTitle("StreamUrl='';"), std::nullopt);
    EXPECT_EQ(shownTitle("StreamTitle='a&amp;"), "a&amp") << "whose end is missing";
}

} // namespace
} // namespace tovik::radio
