// SPDX-License-Identifier: GPL-3.0-or-later
#include "vis/ScreenModule.h"

#include "base/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tovik::test {
namespace {

using host::DisplayMode;
using testing::ElementsAre;

class KnownModes final : public host::DisplayModes {
public:
    std::vector<DisplayMode> modes;
    DisplayMode now;

    [[nodiscard]] std::vector<DisplayMode> all() const override { return modes; }

    [[nodiscard]] DisplayMode current() const override { return now; }
};

class ScreenModule : public testing::Test {
protected:
    KnownModes modes_;
    vis::ScreenModule module_{modes_};
};

TEST_F(ScreenModule, listsOneTextAMode) {
    modes_.modes = {{640, 480, 4, 60},    {800, 600, 8, 75},    {1024, 768, 16, 85},
                    {1280, 1024, 24, 60}, {1920, 1080, 32, 59}, {1920, 1080, 32, 0},
                    {1920, 1080, 32, 1}};
    EXPECT_THAT(module_.ListDisplayModes(),
                ElementsAre("640 x 480, 16 colors, 60 Hz", "800 x 600, 256 colors, 75 Hz",
                            "1024 x 768, 16bit color, 85 Hz", "1280 x 1024, 24bit color, 60 Hz",
                            "1920 x 1080, 32bit color, 59 Hz",
                            "1920 x 1080, 32bit color, (Hardware default)",
                            "1920 x 1080, 32bit color, (Hardware default)"));
}

TEST_F(ScreenModule, findsTheModeInForceByAllFourValues) {
    modes_.modes = {{1920, 1080, 32, 60}, {1920, 1080, 32, 75}, {1920, 1080, 24, 75}};
    modes_.now = {1920, 1080, 32, 75};
    EXPECT_EQ(module_.CurrentDisplayMode(), 1);
    EXPECT_EQ(module_.ColourDepth(), 32);
    modes_.now.bitsPerPixel = 24;
    EXPECT_EQ(module_.CurrentDisplayMode(), 2);
    EXPECT_EQ(module_.ColourDepth(), 24);
    modes_.now.height = 1200;
    EXPECT_EQ(module_.CurrentDisplayMode(), -1);
}

int numberOf(const vis::ScreenModule& module) {
    try {
        static_cast<void>(module.ColourDepth());
        return 0;
    } catch (const base::RuntimeError& error) {
        return static_cast<int>(error.number());
    }
}

TEST_F(ScreenModule, raisesWhereTheDepthIsNoNumber) {
    modes_.modes = {{800, 600, 8, 75}};
    modes_.now = modes_.modes[0];
    EXPECT_EQ(numberOf(module_), 13);
    modes_.modes = {{640, 480, 4, 75}};
    modes_.now = modes_.modes[0];
    EXPECT_EQ(numberOf(module_), 13);
    modes_.now.hertz = 60;
    EXPECT_EQ(numberOf(module_), 9);
    modes_.modes.clear();
    EXPECT_EQ(module_.CurrentDisplayMode(), -1);
    EXPECT_TRUE(module_.ListDisplayModes().empty());
}

} // namespace
} // namespace tovik::test
