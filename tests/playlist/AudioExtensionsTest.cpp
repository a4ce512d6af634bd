// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/AudioExtensions.h"

#include <gtest/gtest.h>

namespace tovik::playlist {
namespace {

TEST(AudioExtensions, theirOrderIsKnown) {
    EXPECT_EQ(AudioExtensions[0], "mo3");
    EXPECT_EQ(AudioExtensions[8], "flac");
    EXPECT_EQ(AudioExtensions[13], "wma");
    EXPECT_EQ(AudioExtensions[15], "pls");
}

TEST(AudioExtensions, aDropTakesThemAllWhole) {
    for (const char* path : {"/a.mp3", "/a.MP3", "/a.Flac", "/list.m3u", "/list.PLS", "/x.y.cda"}) {
        EXPECT_TRUE(isDropped(path)) << path;
    }
    for (const char* path : {"/mp3", "/folder", "/a.mp3x", "/a.mp", "/a.", "", "/a.mp3/"}) {
        EXPECT_FALSE(isDropped(path)) << path;
    }
}

TEST(AudioExtensions, aListOfFilesIsNoMusic) {
    for (const char* path : {"/a.mp3", "/a.WMA", "/x.y.Mo3"}) {
        EXPECT_TRUE(isMusic(path)) << path;
    }
    for (const char* path : {"/list.m3u", "/list.PLS", "/mp3", "/a.txt", ""}) {
        EXPECT_FALSE(isMusic(path)) << path;
    }
}

TEST(AudioExtensions, aFolderTakesWhatHoldsOneOfThem) {
    EXPECT_EQ(scannedRows("mp3"), 1);
    EXPECT_EQ(scannedRows("MP3"), 1);
    EXPECT_EQ(scannedRows("flac"), 2);
    EXPECT_EQ(scannedRows("bit"), 2);
    EXPECT_EQ(scannedRows("item"), 1);
    EXPECT_EQ(scannedRows("mp3x"), 1);
    EXPECT_EQ(scannedRows("itit"), 3); // seen from each of the first three places
    for (const char* extension : {"m3u", "pls", "txt", "", "mp", "bak"}) {
        EXPECT_EQ(scannedRows(extension), 0) << extension;
    }
}

} // namespace
} // namespace tovik::playlist
