// SPDX-License-Identifier: GPL-3.0-or-later
#include "discs/TocText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tovik::discs {
namespace {

using testing::ElementsAre;

/// Two tracks: one from the beginning, one from 4:58 on; ten minutes less the lead-in in all.
sound::DiscToc twoTracks() {
    return {
        .tracks = {{.firstSector = 0, .sectors = 22350}, {.firstSector = 22350, .sectors = 22500}},
        .leadOut = 44850};
}

TEST(TocText, namesADiscAsAQueryDoes) {
    EXPECT_EQ(tocText(twoTracks()), "2 150 22500 600");
}

TEST(TocText, theLeadInCountsAndFractionsOfASecondDoNot) {
    sound::DiscToc toc = twoTracks();
    toc.leadOut += 74;
    EXPECT_EQ(tocText(toc), "2 150 22500 600");
    toc.leadOut += 1;
    EXPECT_EQ(tocText(toc), "2 150 22500 601");
}

TEST(TocText, aHiddenTrackLeavesTheFirstOneWhereItIs) {
    sound::DiscToc toc = twoTracks();
    toc.tracks.front().firstSector = 7500;
    EXPECT_EQ(tocText(toc), "2 7650 22500 600");
}

TEST(TocText, tracksWithDataCount) {
    sound::DiscToc toc = twoTracks();
    toc.tracks.front().isData = true;
    EXPECT_EQ(tocText(toc), "2 150 22500 600");
}

TEST(TocText, aDiscWithoutTracksHasNone) {
    EXPECT_EQ(tocText({}), "");
    EXPECT_EQ(discId(""), "");
}

TEST(TocText, contentsThatCannotBeHaveNone) {
    sound::DiscToc toc = twoTracks();
    toc.tracks.back().firstSector = -200;
    EXPECT_EQ(tocText(toc), "");
    toc = twoTracks();
    toc.leadOut = 0;
    EXPECT_EQ(tocText(toc), "");
    toc = twoTracks();
    toc.tracks.resize(100, toc.tracks.back());
    EXPECT_EQ(tocText(toc), "");
}

TEST(TocText, isTakenApart) {
    const auto numbers = parseToc("2 150 22500 600");
    ASSERT_TRUE(numbers);
    EXPECT_THAT(numbers->starts, ElementsAre(150, 22500));
    EXPECT_EQ(numbers->seconds, 600);
}

TEST(TocText, whatIsNoneIsRefused) {
    for (const char* const text :
         {"0", "0 600", "x", "2 150", "2 150 22500", "2 150 22500 600 1", "2 22500 150 600",
          "2 150 22500 299", "100 150 600", "-1 150 600", "1 99999999999 600", "1  150 600"}) {
        EXPECT_FALSE(parseToc(text)) << text;
        EXPECT_EQ(discId(text), "") << text;
    }
}

// The digits of 2 and 300 sum up to 5; 598 seconds are 0x256.
TEST(TocText, theNumberOfTheDisc) {
    EXPECT_EQ(discId("2 150 22500 600"), "05025602");
}

TEST(TocText, theSumGoesRound) {
    std::string toc = "20";
    for (int track = 0; track < 20; ++track) {
        toc += " " + std::to_string((59 + 60 * track) * 75);
    }
    // The digits of 59, 119 ... 1199 sum up to 358, which is 0x67 past 255; 1241 s are 0x4D9.
    EXPECT_EQ(discId(toc + " 1300"), "6704d914");
}

TEST(TocText, ninetyNineTracks) {
    std::string toc = "99";
    for (int track = 0; track < 99; ++track) {
        toc += " " + std::to_string(150 + track * 300);
    }
    const std::string id = discId(toc + " 400");
    ASSERT_EQ(id.size(), 8);
    EXPECT_EQ(id.substr(6), "63");
}

} // namespace
} // namespace tovik::discs
