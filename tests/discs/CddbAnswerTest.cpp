// SPDX-License-Identifier: GPL-3.0-or-later
#include "discs/CddbAnswer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tovik::discs {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kEntry = "210 rock 05025602 CD database entry follows\r\n"
                               "# xmcd\r\n"
                               "#\r\n"
                               "# Disc length: 600 seconds\r\n"
                               "DISCID=05025602\r\n"
                               "DTITLE=The Artist / The Album\r\n"
                               "DYEAR=1999\r\n"
                               "DGENRE=Rock\r\n"
                               "TTITLE0=One\r\n"
                               "TTITLE1=Two\r\n"
                               "EXTD=\r\n"
                               "EXTT0=\r\n"
                               "PLAYORDER=\r\n"
                               ".\r\n";

TEST(CddbQuery, oneExactMatch) {
    const QueryAnswer answer = parseQuery("200 rock 05025602 The Artist / The Album\r\n");
    EXPECT_EQ(answer.code, 200);
    EXPECT_THAT(answer.matches, ElementsAre(Match{"rock", "05025602", "The Artist / The Album"}));
}

TEST(CddbQuery, severalMatches) {
    for (const char* const code : {"210", "211"}) {
        const QueryAnswer answer = parseQuery(std::string(code) + " Found matches, list follows\r\n"
                                                                  "rock 05025602 A / B\r\n"
                                                                  "misc 05025603 C / D\r\n"
                                                                  ".\r\n");
        EXPECT_EQ(answer.code, std::stoi(code));
        EXPECT_THAT(answer.matches, ElementsAre(Match{"rock", "05025602", "A / B"},
                                                Match{"misc", "05025603", "C / D"}));
    }
}

TEST(CddbQuery, noMatchAndRefusalsHaveNone) {
    for (const char* const text :
         {"202 No match for disc ID 05025602.\r\n", "403 Database entry is corrupt.\r\n",
          "409 No handshake.\r\n", "500 Command syntax error.\r\n"}) {
        const QueryAnswer answer = parseQuery(text);
        EXPECT_EQ(answer.code, std::stoi(std::string(text, 3)));
        EXPECT_THAT(answer.matches, IsEmpty());
    }
}

TEST(CddbQuery, aListWithoutItsEndIsNone) {
    const QueryAnswer answer = parseQuery("210 Found\r\nrock 05025602 A / B\r\nmisc 0502");
    EXPECT_EQ(answer.code, 0);
    EXPECT_THAT(answer.matches, IsEmpty());
}

TEST(CddbQuery, linesThatAreNoMatchArePassedOver) {
    const QueryAnswer answer =
        parseQuery("211 Found\n\nnonsense\n rock 1 x\nrock 05025602\n\x01z 1 x\n.\nrock 2 y\n");
    EXPECT_THAT(answer.matches, ElementsAre(Match{"rock", "05025602", ""}));
}

TEST(CddbQuery, listsHaveALimit) {
    std::string text = "211 Found\n";
    for (int line = 0; line < 1000; ++line) {
        text += "rock 05025602 A / B\n";
    }
    EXPECT_EQ(parseQuery(text + ".\n").matches.size(), kMostMatches);
}

TEST(CddbQuery, whatIsNoAnswer) {
    for (const char* const text : {"", "\r\n", "<html>", "20 x", "2000 rock 1 x", "-20 x",
                                   "200rock", "200", "200 ", "200 rock"}) {
        EXPECT_THAT(parseQuery(text).matches, IsEmpty()) << text;
    }
    EXPECT_EQ(parseQuery("<html>").code, 0);
    EXPECT_EQ(parseQuery("2000 rock 1 x").code, 0);
}

TEST(CddbRead, anEntry) {
    const ReadAnswer answer = parseRead(kEntry);
    EXPECT_EQ(answer.code, 210);
    EXPECT_EQ(answer.entry.artist, "The Artist");
    EXPECT_EQ(answer.entry.title, "The Album");
    EXPECT_EQ(answer.entry.year, "1999");
    EXPECT_EQ(answer.entry.genre, "Rock");
    EXPECT_THAT(answer.entry.tracks, ElementsAre("One", "Two"));
}

TEST(CddbRead, anEntryWithoutItsEndIsNone) {
    const std::string whole = kEntry;
    const ReadAnswer answer = parseRead(whole.substr(0, whole.size() - 3));
    EXPECT_EQ(answer.code, 0);
    EXPECT_THAT(answer.entry.tracks, IsEmpty());
}

TEST(CddbRead, refusals) {
    EXPECT_EQ(parseRead("401 rock 05025602 No such CD entry in database\r\n").code, 401);
    EXPECT_EQ(parseRead("403 Database entry is corrupt\r\n").code, 403);
    EXPECT_EQ(parseRead("").code, 0);
}

DiscEntry entryOfLines(const std::string& lines) {
    return parseRead("210 x\n" + lines + ".\n").entry;
}

TEST(CddbRead, aTextGoesOnInTheNextLineOfItsKey) {
    const DiscEntry entry = entryOfLines("DTITLE=Long Art\nDTITLE=ist / Long Al\nDTITLE=bum\n"
                                         "TTITLE0=A \nTTITLE0=B\n");
    EXPECT_EQ(entry.artist, "Long Artist");
    EXPECT_EQ(entry.title, "Long Album");
    EXPECT_THAT(entry.tracks, ElementsAre("A B"));
}

TEST(CddbRead, aCharacterThatALineEndCutsIsWhole) {
    EXPECT_THAT(entryOfLines("TTITLE0=Poletni ve\xC4\nTTITLE0=\x8D"
                             "er\n")
                    .tracks,
                ElementsAre("Poletni večer"));
}

TEST(CddbRead, latinTextsAmongThoseInUtf8) {
    EXPECT_THAT(entryOfLines("TTITLE0=Caf\xE9\nTTITLE1=Čas\n").tracks, ElementsAre("Café", "Čas"));
}

TEST(CddbRead, withoutASlashTheTitleIsTheArtistToo) {
    const DiscEntry entry = entryOfLines("DTITLE=Themselves\n");
    EXPECT_EQ(entry.artist, "Themselves");
    EXPECT_EQ(entry.title, "Themselves");
    EXPECT_EQ(entryOfLines("DTITLE=AC/DC / Live / Loud\n").artist, "AC/DC");
    EXPECT_EQ(entryOfLines("DTITLE=AC/DC / Live / Loud\n").title, "Live / Loud");
}

TEST(CddbRead, escapesAndControlCharactersAreNoLineEnds) {
    EXPECT_THAT(entryOfLines("TTITLE0=a\\nb\\tc\\\\d\\x\nTTITLE1=a\x01"
                             "b\x7F"
                             "c\\\n")
                    .tracks,
                ElementsAre("a b c\\d\\x", "a b c\\"));
}

TEST(CddbRead, textsMayHoldAnEqualsSign) {
    EXPECT_THAT(entryOfLines("TTITLE0=E=mc2\n").tracks, ElementsAre("E=mc2"));
}

TEST(CddbRead, titlesGoWhereTheirNumbersSay) {
    EXPECT_THAT(entryOfLines("TTITLE2=c\nTTITLE0=a\n").tracks, ElementsAre("a", "", "c"));
    EXPECT_EQ(entryOfLines("TTITLE98=last\n").tracks.size(), 99);
    EXPECT_THAT(entryOfLines("TTITLE99=x\nTTITLE-1=x\nTTITLE=x\nTTITLE1x=x\n").tracks, IsEmpty());
}

TEST(CddbRead, aPointInFrontOfALineIsWrittenTwice) {
    // Such a line is none of a key; it does not end the entry, either.
    EXPECT_THAT(entryOfLines("..\nTTITLE0=a\n").tracks, ElementsAre("a"));
}

} // namespace
} // namespace tovik::discs
