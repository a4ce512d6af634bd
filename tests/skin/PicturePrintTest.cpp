// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/PicturePrint.h"

#include <gtest/gtest.h>

#include <set>

namespace tovik::skin {
namespace {

TEST(PicturePrint, isTheSameForTheSameBytes) {
    const std::string bytes(1000, 'x');
    EXPECT_EQ(picturePrint("main", bytes), picturePrint("main", std::string(1000, 'x')));
    EXPECT_NE(picturePrint("main", bytes), picturePrint("screen", bytes));
}

TEST(PicturePrint, tellsEveryBitOfEveryByte) {
    std::set<std::uint64_t> prints;
    std::string bytes(203, '\xFF'); // no whole number of words
    prints.insert(picturePrint("0", bytes));
    for (char& byte : bytes) {
        for (int bit = 0; bit < 8; ++bit) {
            byte = static_cast<char>(byte ^ 1 << bit);
            prints.insert(picturePrint("0", bytes));
            byte = static_cast<char>(byte ^ 1 << bit);
        }
    }
    EXPECT_EQ(prints.size(), 1 + bytes.size() * 8);
}

TEST(PicturePrint, tellsTwoChangesOfTheHighestBits) {
    // They would cancel each other if a step only multiplied.
    std::set<std::uint64_t> prints;
    for (int first = 0; first < 20; ++first) {
        for (int second = first; second < 20; ++second) {
            std::string bytes(160, '\x7F');
            bytes[static_cast<std::size_t>(first) * 8 + 7] = '\xFF';
            bytes[static_cast<std::size_t>(second) * 8 + 7] = '\xFF';
            prints.insert(picturePrint("0", bytes));
        }
    }
    EXPECT_EQ(prints.size(), 210U);
}

TEST(PicturePrint, tellsLengths) {
    std::set<std::uint64_t> prints;
    for (std::size_t length = 0; length < 40; ++length) {
        prints.insert(picturePrint("0", std::string(length, '\0')));
    }
    EXPECT_EQ(prints.size(), 40U);
    EXPECT_NE(picturePrint("a", "b"), picturePrint("ab", ""));
}

TEST(PicturePrint, isWrittenAsSixteenDigits) {
    EXPECT_EQ(printName(0), "0000000000000000");
    EXPECT_EQ(printName(0xFEDCBA9876543210), "fedcba9876543210");
}

} // namespace
} // namespace tovik::skin
