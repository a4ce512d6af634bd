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
    EXPECT_EQ(cdTrackOf("D:\\Track01.cda"), (CdTrack{'D', 1}));
    EXPECT_EQ(cdTrackOf("e:\\TRACK17.CDA"), (CdTrack{'E', 17}));
    EXPECT_EQ(cdTrackOf("D:\\Track10.cda"), (CdTrack{'D', 10}));
    EXPECT_EQ(cdTrackOf("track5.cda"), (CdTrack{std::nullopt, 5}));
    EXPECT_EQ(cdTrackOf("/mnt/Track02.cda"), (CdTrack{std::nullopt, 2}));
    EXPECT_EQ(cdTrackOf("/home/e:\\Track02.cda"), (CdTrack{'E', 2}));
    EXPECT_EQ(cdTrackOf("D:\\Track12.cda.bak"), (CdTrack{'D', 12}));
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
