// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/qt/QtWatches.h"

#include "EventLoop.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <unistd.h>

namespace tovik::host {
namespace {

class QtWatchesTest : public testing::Test {
protected:
    QtWatchesTest() { static_cast<void>(::pipe(pipe_.data())); }

    ~QtWatchesTest() override {
        ::close(pipe_[0]);
        ::close(pipe_[1]);
    }

    void write() { EXPECT_EQ(::write(pipe_[1], "x", 1), 1); }

    void read() {
        char byte = 0;
        EXPECT_EQ(::read(pipe_[0], &byte, 1), 1);
    }

    Dispatcher dispatcher_;
    QtWatches watches_{dispatcher_};
    std::array<int, 2> pipe_{};
};

TEST_F(QtWatchesTest, tellsOnceForEachByteThatIsTakenIn) {
    int told = 0;
    const auto watch = watches_.watch(pipe_[0], [&] {
        read();
        ++told;
    });
    EXPECT_FALSE(test::waitFor([&, end = 20]() mutable { return told > 0 || --end <= 0; }) &&
                 told > 0);
    write();
    write();
    EXPECT_TRUE(test::waitFor([&] { return told == 2; }));
}

TEST_F(QtWatchesTest, mayGoWithinItsOwnCall) {
    int told = 0;
    std::unique_ptr<Watch> watch;
    watch = watches_.watch(pipe_[0], [&] {
        watch.reset();
        ++told;
    });
    write();
    EXPECT_TRUE(test::waitFor([&] { return told == 1; }));
    EXPECT_TRUE(test::waitFor([end = 20]() mutable { return --end <= 0; }));
    EXPECT_EQ(told, 1);
}

TEST_F(QtWatchesTest, ofNothingNeverTells) {
    const auto watch = watches_.watch(-1, [] { FAIL(); });
    EXPECT_TRUE(test::waitFor([end = 10]() mutable { return --end <= 0; }));
}

} // namespace
} // namespace tovik::host
