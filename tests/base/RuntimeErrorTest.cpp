// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/RuntimeError.h"
#include "base/FileErrors.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace tovik::base {
namespace {

TEST(RuntimeError, bearsTheStandardDescription) {
    const RuntimeError error(ErrorNumber::Overflow);
    EXPECT_EQ(error.number(), 6);
    EXPECT_EQ(error.description(), "Overflow");
    EXPECT_STREQ(error.what(), "Overflow");
}

TEST(RuntimeError, takesADescriptionOfItsOwn) {
    const RuntimeError error(ErrorNumber::FileNotFound, "no such list");
    EXPECT_EQ(error.number(), 53);
    EXPECT_EQ(error.description(), "no such list");
}

TEST(RuntimeError, numbersOutsideTheTableShareOneText) {
    EXPECT_EQ(errorDescription(5), "Invalid procedure call or argument");
    EXPECT_EQ(errorDescription(94), "Invalid use of Null");
    EXPECT_EQ(errorDescription(481), "Invalid picture");
    EXPECT_EQ(errorDescription(1), errorDescription(-40000));
    EXPECT_NE(errorDescription(1), errorDescription(5));
}

TEST(FileErrors, systemFailuresHaveNumbers) {
    const auto numberOf = [](int systemError) {
        return errorNumberOf({systemError, std::generic_category()});
    };
    EXPECT_EQ(numberOf(ENOENT), ErrorNumber::FileNotFound);
    EXPECT_EQ(numberOf(ENOTDIR), ErrorNumber::PathNotFound);
    EXPECT_EQ(numberOf(EACCES), ErrorNumber::PermissionDenied);
    EXPECT_EQ(numberOf(ENOSPC), ErrorNumber::DiskFull);
    EXPECT_EQ(numberOf(EISDIR), ErrorNumber::PathFileAccessError);
}

} // namespace
} // namespace tovik::base
