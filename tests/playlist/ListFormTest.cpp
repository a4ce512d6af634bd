// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/ListForm.h"

#include <gtest/gtest.h>

namespace tovik::playlist {
namespace {

TEST(ListForm, theExtensionTellsIt) {
    const base::Comfort none;
    EXPECT_EQ(listFormOf("/a.b/x.M3u", none), ListForm::M3u);
    EXPECT_EQ(listFormOf("x.PLS", none), ListForm::Pls);
    for (const char* name : {"x.m3u8", "x.xspf", "x.mp3", "m3u", "x.m3", "x.m3u.bak", ""}) {
        EXPECT_EQ(listFormOf(name, none), std::nullopt) << name;
    }
    base::Comfort more;
    more.opensMoreLists = true;
    EXPECT_EQ(listFormOf("x.M3U8", more), ListForm::M3u);
    EXPECT_EQ(listFormOf("x.Xspf", more), ListForm::Xspf);
    EXPECT_EQ(listFormOf("x.mp3", more), std::nullopt);
}

TEST(ListForm, theTextOverrulesTheName) {
    EXPECT_EQ(listFormIn(" \r\n[Playlist]\nFile1=a", ListForm::M3u), ListForm::Pls);
    EXPECT_EQ(listFormIn("\n<?xml version=\"1.0\"?>", ListForm::M3u), ListForm::Xspf);
    EXPECT_EQ(listFormIn("#EXTM3U\na", ListForm::Pls), ListForm::M3u);
    EXPECT_EQ(listFormIn("a.mp3\n[playlist]", ListForm::M3u), ListForm::M3u);
    EXPECT_EQ(listFormIn("", ListForm::Pls), ListForm::Pls);
}

} // namespace
} // namespace tovik::playlist
