// SPDX-License-Identifier: GPL-3.0-or-later
// A rip whose program ends while it looks for a name.
#include "cd/RipRig.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace tovik::cd {

namespace {

class RipAtEnd : public test::RipRig {};

} // namespace

TEST_F(RipAtEnd, writesOverNothing) {
    state_.comfort.keepsEarlierRips = true;
    // A slow disk: each look for a name goes through thirty long links.
    std::string dots;
    for (int step = 0; step < 1000; ++step) {
        dots += "./";
    }
    std::filesystem::create_directories(album(""));
    std::string target = "end";
    std::ofstream(album(target)) << "earlier";
    for (int link = 0; link < 30; ++link) {
        const std::string name = "link" + std::to_string(link);
        std::filesystem::create_symlink(dots + target, album(name));
        target = name;
    }
    constexpr int kNames = 100;
    const std::vector<std::pair<std::string, std::string>> formats{
        {"MP3 CBR", "Song 1|.mp3"}, {"WAV", "TRACK1|.WAV"}, {"WMA", "Song 1|.WMA"}};
    for (const auto& [format, name] : formats) {
        const std::size_t place = name.find('|');
        const std::string stem = name.substr(0, place);
        const std::string ending = name.substr(place + 1);
        const std::string first = album(stem + ending);
        std::ofstream(first) << "earlier";
        for (int number = 2; number < kNames; ++number) {
            std::filesystem::create_symlink(
                target, album(stem + " (" + std::to_string(number) + ")" + ending));
        }
        set("DOF", format);
        bool ends = false;
        pump_.inStep = [&] {
            ends = true;
            return false;
        };
        ripping_.Rip_All();
        EXPECT_TRUE(ends) << format;
        EXPECT_THAT(sound_.encoders, testing::IsEmpty()) << format;
        EXPECT_EQ(std::filesystem::file_size(first), 7U) << format;
    }
}

} // namespace tovik::cd
