// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/visual/PluginName.h"

#include <gtest/gtest.h>

namespace tovik::test {
namespace {

using sound::pluginName;

struct NameRow {
    std::string_view told;
    std::string_view shown;
};

class APluginName : public testing::TestWithParam<NameRow> {};

TEST_P(APluginName, isOneLineWithoutControls) {
    EXPECT_EQ(pluginName(GetParam().told), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Visual, APluginName,
                         testing::Values(NameRow{"", ""}, NameRow{"Waves", "Waves"},
                                         NameRow{"Wellen \xc3\xa4", "Wellen \xc3\xa4"},
                                         NameRow{"one\ntwo", "one"}, NameRow{"one\rtwo", "one"},
                                         NameRow{{"one\0two", 7}, "one"},
                                         NameRow{"\x1b[31mred\x7f\t", "[31mred"},
                                         NameRow{"a\xc2\x80\xc2\x9f\xc2\xa0z", "a\xc2\xa0z"},
                                         NameRow{"ends in half \xc2", "ends in half \xc2"}));

TEST(APluginNameThatIsLong, endsBetweenTwoCharacters) {
    std::string told = "x";
    for (int i = 0; i < 150; ++i) {
        told += "\xc3\xa4";
    }
    EXPECT_EQ(pluginName(told), told.substr(0, sound::kLongestPluginName - 1));
}

} // namespace
} // namespace tovik::test
