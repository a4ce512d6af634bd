// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/FallbackOutput.h"
#include "sound/output/CountingSource.h"
#include "sound/output/SimulatedOutput.h"

#include <gtest/gtest.h>

namespace tovik::sound {
namespace {

class Fallback : public testing::Test {
protected:
    Fallback()
        : Fallback(std::make_unique<SimulatedOutput>(SimulatedOutput::Settings{
              .latencyFrames = 1, .queue = {.length = 2048, .request = 512}})) {}

    SimulatedOutput& first_;
    SimulatedOutput* second_ = nullptr;
    int made_ = 0;
    bool secondRefuses_ = false;
    bool none_ = false;
    FallbackOutput device_;
    CountingSource source_;

private:
    explicit Fallback(std::unique_ptr<SimulatedOutput> first)
        : first_(*first), device_(std::move(first), [this]() -> std::unique_ptr<OutputDevice> {
              if (none_) {
                  return nullptr;
              }
              ++made_;
              auto second =
                  std::make_unique<SimulatedOutput>(SimulatedOutput::Settings{.latencyFrames = 2});
              second_ = second.get();
              second_->refuseOpen(secondRefuses_);
              return second;
          }) {}
};

TEST_F(Fallback, TheSecondIsNotEvenMadeWhileTheFirstWorks) {
    EXPECT_TRUE(device_.mixesAhead());
    ASSERT_TRUE(device_.open(source_));
    EXPECT_EQ(device_.latencyFrames(), 1);
    EXPECT_TRUE(device_.heardClock());
    device_.setPaused(true);
    EXPECT_EQ(first_.count(DeviceCall::paused), 1);
    device_.close();
    first_.refuseOpen(true);
    EXPECT_FALSE(device_.open(source_)) << "it has worked, so it is waited for";
    EXPECT_EQ(made_, 0);
}

TEST_F(Fallback, TheSecondServesWhereThereIsNoFirstAndStays) {
    int losses = 0;
    device_.onLost([&] { ++losses; });
    first_.refuseOpen(true);
    ASSERT_TRUE(device_.open(source_));
    EXPECT_EQ(device_.latencyFrames(), 2);
    EXPECT_EQ(device_.heardClock(), std::nullopt);
    second_->advance(100);
    EXPECT_EQ(source_.frames(), 100U);
    second_->vanish();
    EXPECT_EQ(losses, 1);
    device_.close();
    first_.refuseOpen(false);
    second_->arrive();
    ASSERT_TRUE(device_.open(source_));
    EXPECT_EQ(first_.count(DeviceCall::opened), 0);
    EXPECT_EQ(made_, 1);
    device_.close();
}

TEST_F(Fallback, WhileNeitherOpensBothAreTriedAgain) {
    first_.refuseOpen(true);
    secondRefuses_ = true;
    EXPECT_FALSE(device_.open(source_));
    EXPECT_FALSE(device_.open(source_));
    EXPECT_EQ(made_, 1);
    EXPECT_EQ(second_->count(DeviceCall::refused), 2);
    first_.refuseOpen(false);
    ASSERT_TRUE(device_.open(source_));
    EXPECT_EQ(device_.latencyFrames(), 1);
    device_.close();
}

TEST_F(Fallback, ThereNeedNotBeASecondForTheTimeBeing) {
    first_.refuseOpen(true);
    none_ = true;
    EXPECT_FALSE(device_.open(source_));
    none_ = false;
    EXPECT_TRUE(device_.open(source_));
    EXPECT_EQ(made_, 1);
    device_.close();
}

} // namespace
} // namespace tovik::sound
