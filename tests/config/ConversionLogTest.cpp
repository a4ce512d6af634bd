// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/ConversionLog.h"

#include "support/host/TestHost.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tovik::config {
namespace {

class ConversionLogTest : public testing::Test {
protected:
    void log(std::int32_t code, std::string_view file) const {
        logConversion(host_.paths, host_.clock, code, file);
    }

    test::TestHost host_;
};

TEST_F(ConversionLogTest, oneLineAJobThatFailed) {
    log(2, "/music/a b.mp3");
    log(15, "c.wav");
    const std::string text = host_.folder.read("Tovik.log");
    const std::size_t second = text.find("\r\n") + 2;
    constexpr std::size_t kTime = std::string_view("yyyy-MM-dd HH:mm:ss").size();
    EXPECT_EQ(
        text.substr(kTime, second - kTime),
        " Can't Open the File 2 occured when Tovik tried to play/convert: /music/a b.mp3\r\n");
    EXPECT_EQ(text.substr(second + kTime),
              "  15 occured when Tovik tried to play/convert: c.wav\r\n");
    EXPECT_EQ(text[4], '-');
    EXPECT_EQ(text[7], '-');
    EXPECT_EQ(text[10], ' ');
    EXPECT_EQ(text[13], ':');
}

TEST_F(ConversionLogTest, otherWordsStandBehindTheTime) {
    noteConversion(host_.paths, host_.clock, "a, b");
    EXPECT_EQ(host_.folder.read("Tovik.log").substr(19), " a, b\r\n");
}

TEST_F(ConversionLogTest, successAndUnknownFailuresLeaveNoLine) {
    log(0, "a");
    log(-1, "a");
    EXPECT_FALSE(std::filesystem::exists(host_.folder / "Tovik.log"));
}

} // namespace
} // namespace tovik::config
