// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Numbers.h"
#include "base/RuntimeError.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <functional>
#include <limits>
#include <string>

namespace tovik::base {
namespace {

/// The number of the error that the operation raises; 0 for none.
int raised(const std::function<void()>& operation) {
    try {
        operation();
        return 0;
    } catch (const RuntimeError& error) {
        return error.number();
    }
}

int raisedByText(const std::string& text) {
    return raised([&] { static_cast<void>(textToNumber(text)); });
}

TEST(Numbers, halvesGoToTheEvenNeighbour) {
    EXPECT_EQ(toInt16(0.5), 0);
    EXPECT_EQ(toInt16(1.5), 2);
    EXPECT_EQ(toInt16(2.5), 2);
    EXPECT_EQ(toInt16(-0.5), 0);
    EXPECT_EQ(toInt16(-1.5), -2);
    EXPECT_EQ(toInt32(2147483646.5), 2147483646);
    EXPECT_EQ(toInt32(0.49999), 0);
}

TEST(Numbers, outOfRangeOverflows) {
    EXPECT_EQ(toInt16(32767.4), 32767);
    EXPECT_EQ(toInt16(-32768.5), -32768);
    EXPECT_EQ(toInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const double value : {32767.5, -32769.0, 1e300, nan, -HUGE_VAL}) {
        EXPECT_EQ(raised([&] { static_cast<void>(toInt16(value)); }), 6) << value;
    }
    for (const double value : {2147483647.5, -2147483649.0, nan, HUGE_VAL}) {
        EXPECT_EQ(raised([&] { static_cast<void>(toInt32(value)); }), 6) << value;
    }
}

TEST(Numbers, textIsReadWhole) {
    EXPECT_EQ(textToNumber("0"), 0);
    EXPECT_EQ(textToNumber("  -12.50 "), -12.5);
    EXPECT_EQ(textToNumber("+.5"), 0.5);
    EXPECT_EQ(textToNumber("5."), 5);
    EXPECT_EQ(textToNumber("1e3"), 1000);
    EXPECT_EQ(textToNumber("1E-2"), 0.01);
}

TEST(Numbers, textThatIsNoNumberMismatches) {
    for (const char* text : {"", " ", "-", "+-1", ".", "abc", "12x", "1 2", "1,5", "inf", "nan",
                             "0x10", "1e", "\t1"}) {
        EXPECT_EQ(raisedByText(text), 13) << text;
    }
}

TEST(Numbers, textTooBigOverflowsAndTooSmallIsZero) {
    const std::string zeros(400, '0');
    for (const std::string& text : {std::string("1e400"), std::string("-1E+999999999999999999"),
                                    "1" + zeros, std::string("0.5e400"), "1" + zeros + "e-1"}) {
        EXPECT_EQ(raisedByText(text), 6) << text;
    }
    for (const std::string& text : {std::string("1e-400"), "0." + zeros + "1", "." + zeros + "1e5",
                                    std::string("5e-99999999999999999999")}) {
        EXPECT_EQ(textToNumber(text), 0) << text;
    }
}

TEST(Numbers, theLocalePlaysNoPart) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* comma : {"de_DE.UTF-8", "sl_SI.UTF-8", "fr_FR.UTF-8"}) {
        static_cast<void>(
            std::setlocale(LC_ALL, comma)); // without effect where the locale is not installed
        EXPECT_EQ(textToNumber("1.5"), 1.5);
        EXPECT_EQ(raisedByText("1,5"), 13);
    }
    static_cast<void>(std::setlocale(LC_ALL, before.c_str()));
}

TEST(Numbers, division) {
    EXPECT_EQ(divide(1, 4), 0.25);
    EXPECT_EQ(divide(0, 5), 0);
    EXPECT_EQ(raised([] { static_cast<void>(divide(0, 0)); }), 6);
    EXPECT_EQ(raised([] { static_cast<void>(divide(3, 0)); }), 11);
    EXPECT_EQ(raised([] { static_cast<void>(divide(-3, 0)); }), 11);
    EXPECT_EQ(raised([] { static_cast<void>(divide(1e300, 1e-300)); }), 6);
}

} // namespace
} // namespace tovik::base
