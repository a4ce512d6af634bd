// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/RuntimeError.h"
#include "player/TrackOpener.h"

#include <gtest/gtest.h>

namespace tovik::player {
namespace {

int raised(std::string_view path) {
    try {
        static_cast<void>(cdTrackOf(path));
        return 0;
    } catch (const base::RuntimeError& error) {
        return error.number();
    }
}

TEST(CdTrack, namesOfTracksInAnyCase) {
    EXPECT_EQ(cdTrackOf("D:\\Track01.cda"), 1U);
    EXPECT_EQ(cdTrackOf("e:\\TRACK17.CDA"), 17U);
    EXPECT_EQ(cdTrackOf("track5.cda"), 5U);
    EXPECT_EQ(cdTrackOf("D:\\Track12.cda.bak"), 12U);
}

TEST(CdTrack, otherNamesAreNone) {
    EXPECT_EQ(cdTrackOf(""), std::nullopt);
    EXPECT_EQ(cdTrackOf("/music/track01.mp3"), std::nullopt);
    EXPECT_EQ(cdTrackOf("cda"), std::nullopt);
}

TEST(CdTrack, whatStandsBehindTheFirstTrackWordMustBeANumber) {
    EXPECT_EQ(raised("D:\\track.cda"), 13);
    EXPECT_EQ(raised("/soundtrack/Track01.cda"), 13);
    EXPECT_EQ(raised("tracktrack1.cda"), 13);
    EXPECT_EQ(raised("track99999999999.cda"), 6);
}

TEST(CdTrack, aNameWithoutTheWordHasNoSuchPart) {
    EXPECT_EQ(raised("D:\\01.cda"), 9);
}

} // namespace
} // namespace tovik::player
