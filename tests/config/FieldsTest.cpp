// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Fields.h"

#include "config/RaisedNumber.h"
#include "config/SettingText.h"

#include <gtest/gtest.h>

namespace tovik::config {
namespace {

using test::raisedNumber;
using List = std::vector<std::string>;

TEST(Fields, splitAtEverySeparator) {
    EXPECT_EQ(Fields("1,2,3", ',').all().size(), 3U);
    const Fields fields("0/-1.2//a b/", '/');
    EXPECT_EQ(fields.all(), (List{"0", "-1.2", "", "a b", ""}));
    const Fields one("1,2", '/');
    EXPECT_EQ(one.all(), List{"1,2"});
}

TEST(Fields, anEmptyTextHasNone) {
    const Fields none("", ',');
    EXPECT_TRUE(none.all().empty());
    EXPECT_EQ(raisedNumber([&] { std::ignore = none.at(0); }), 9);
}

TEST(Fields, beyondTheLastIsAnError) {
    const Fields fields("a,b", ',');
    EXPECT_EQ(fields.at(1), "b");
    EXPECT_EQ(raisedNumber([&] { std::ignore = fields.at(2); }), 9);
}

TEST(SettingText, wholeNumbers) {
    EXPECT_EQ(settingToInt16("80"), 80);
    EXPECT_EQ(settingToInt16(" -1 "), -1);
    EXPECT_EQ(settingToInt16("0.5"), 0);
    EXPECT_EQ(settingToInt16("1.5"), 2);
    EXPECT_EQ(settingToInt16("2.5"), 2);
    EXPECT_EQ(settingToInt16("-32768"), -32768);
    EXPECT_EQ(settingToInt16("32767"), 32767);
    for (const char* const text : {"", "x", "1x", "0,5", "1 2"}) {
        EXPECT_EQ(raisedNumber([&] { std::ignore = settingToInt16(text); }), 13) << text;
    }
    for (const char* const text : {"32768", "-32769", "1e9"}) {
        EXPECT_EQ(raisedNumber([&] { std::ignore = settingToInt16(text); }), 6) << text;
    }
}

TEST(SettingText, aFlagIsTrueForOneAlone) {
    for (const char* const text : {"1", "1.0", " 1 ", "01", "1e0"}) {
        EXPECT_TRUE(settingToFlag(text)) << text;
    }
    for (const char* const text : {"0", "2", "-1", "1.4", "70000"}) {
        EXPECT_FALSE(settingToFlag(text)) << text;
    }
    EXPECT_EQ(raisedNumber([&] { std::ignore = settingToFlag(""); }), 13);
    EXPECT_EQ(raisedNumber([&] { std::ignore = settingToFlag("True"); }), 13);
    EXPECT_TRUE(settingToFlag(flagText(true)));
    EXPECT_FALSE(settingToFlag(flagText(false)));
}

} // namespace
} // namespace tovik::config
