// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/Dispatcher.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <vector>

namespace tovik::host {
namespace {

using base::ErrorNumber;
using base::RuntimeError;

class DispatcherTest : public testing::Test {
protected:
    DispatcherTest() {
        dispatcher_.reportTo([this](const RuntimeError& error) { errors_.push_back(error); });
    }

    Dispatcher dispatcher_;
    std::vector<RuntimeError> errors_;
};

TEST_F(DispatcherTest, runsTheHandler) {
    int runs = 0;
    dispatcher_.run([&] { ++runs; });
    EXPECT_EQ(runs, 1);
    EXPECT_TRUE(errors_.empty());
}

TEST_F(DispatcherTest, everyKindOfExceptionIsReportedAsARuntimeError) {
    dispatcher_.run([] { throw RuntimeError(ErrorNumber::TypeMismatch); });
    dispatcher_.run([] { throw std::bad_alloc(); });
    dispatcher_.run([] { throw std::runtime_error("broken"); });
    dispatcher_.run([] { throw 1; }); // NOLINT(hicpp-exception-baseclass): on purpose
    ASSERT_EQ(errors_.size(), 4U);
    EXPECT_EQ(errors_[0].number(), 13);
    EXPECT_EQ(errors_[1].number(), 7);
    EXPECT_EQ(errors_[2].number(), 51);
    EXPECT_EQ(errors_[2].description(), "broken");
    EXPECT_EQ(errors_[3].number(), 51);
}

TEST_F(DispatcherTest, anErrorInTheReportIsDropped) {
    dispatcher_.reportTo([](const RuntimeError&) { throw RuntimeError(ErrorNumber::DiskFull); });
    dispatcher_.run([] { throw RuntimeError(ErrorNumber::Overflow); });
    int runs = 0;
    dispatcher_.run([&] { ++runs; });
    EXPECT_EQ(runs, 1);
}

TEST(Dispatcher, withoutAReportTheErrorGoesToStandardError) {
    testing::internal::CaptureStderr();
    Dispatcher().run([] { throw RuntimeError(ErrorNumber::Overflow); });
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "tovik: Overflow (6)\n");
}

} // namespace
} // namespace tovik::host
