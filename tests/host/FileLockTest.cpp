// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/system/FileLock.h"
#include "support/host/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

namespace tovik::host {
namespace {

class FileLockTest : public testing::Test {
protected:
    test::TemporaryFolder folder_;
    FileLock first_{folder_ / "lock"};
    FileLock second_{folder_ / "lock"};
};

TEST_F(FileLockTest, oneHoldsItAtATime) {
    EXPECT_TRUE(first_.hold());
    EXPECT_TRUE(first_.hold());
    EXPECT_FALSE(second_.hold());
    first_.release();
    EXPECT_TRUE(second_.hold());
    EXPECT_FALSE(first_.hold());
}

TEST_F(FileLockTest, anotherDataFolderIsAnotherLock) {
    FileLock other(folder_ / "other");
    EXPECT_TRUE(first_.hold());
    EXPECT_TRUE(other.hold());
}

TEST_F(FileLockTest, aKilledInstanceHoldsNothing) {
    std::array<int, 2> ready{};
    ASSERT_EQ(::pipe(ready.data()), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        const char held = first_.hold() ? 1 : 0;
        const bool told = ::write(ready[1], &held, 1) == 1;
        ::pause();
        ::_exit(told ? 0 : 1);
    }
    char held = 0;
    ASSERT_EQ(::read(ready[0], &held, 1), 1);
    EXPECT_EQ(held, 1);
    EXPECT_FALSE(second_.hold());
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_TRUE(second_.hold());
    ::close(ready[0]);
    ::close(ready[1]);
}

TEST_F(FileLockTest, whereNoneCanBeKeptEveryoneIsFirst) {
    FileLock one(folder_ / "none/lock");
    FileLock other(folder_ / "none/lock");
    EXPECT_TRUE(one.hold());
    EXPECT_TRUE(other.hold());
    one.release();
}

} // namespace
} // namespace tovik::host
