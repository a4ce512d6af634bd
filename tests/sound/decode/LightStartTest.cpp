// SPDX-License-Identifier: GPL-3.0-or-later
// A program of its own: which libraries a process has loaded is asked before and after it opened
// files, in this order.
#include "sound/decode/Media.h"

#include <gtest/gtest.h>

#include <fstream>

namespace tovik::sound::test {
namespace {

bool isLoaded(const std::string& library) {
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        if (line.find(library) != std::string::npos) {
            return true;
        }
    }
    return false;
}

bool ffmpegIsLoaded() {
    return isLoaded("libavformat") || isLoaded("libavcodec") || isLoaded("libavutil") ||
           isLoaded("libswresample");
}

TEST(LightStart, FfmpegIsLoadedForTheFilesThatNeedItAlone) {
    ASSERT_TRUE(isLoaded("libmpg123")); // the table is read rightly
    int opened = 0;
    for (const MediaFile& file : allMedia()) {
        if (file.kind == "bad" || file.kind == "wma" || file.name.ends_with(".wma")) {
            continue;
        }
        // As a player does it that does not look at names.
        for (const FormatFamily family :
             {FormatFamily::stream, FormatFamily::music, FormatFamily::wma, FormatFamily::flac}) {
            if (openDecoder(family, mediaPath(file.name)).decoder) {
                ++opened;
                break;
            }
        }
        ASSERT_FALSE(ffmpegIsLoaded()) << file.name;
    }
    EXPECT_GT(opened, 60);
    EXPECT_NE(openMedia("wma_44100.wma"), nullptr);
    EXPECT_TRUE(isLoaded("libavcodec"));
}

} // namespace
} // namespace tovik::sound::test
