// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/BesideJob.h"

#include "support/host/ScriptedPump.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <stdexcept>
#include <thread>

namespace tovik::host {
namespace {

using StepPump = test::ScriptedPump;

TEST(BesideJob, theJobIsDoneOnAnotherThread) {
    StepPump pump;
    std::thread::id thread;
    EXPECT_TRUE(runBeside(pump, [&thread] { thread = std::this_thread::get_id(); }));
    EXPECT_NE(thread, std::this_thread::get_id());
    EXPECT_NE(thread, std::thread::id());
}

TEST(BesideJob, theProgramGoesOnMeanwhile) {
    StepPump pump;
    std::promise<void> gate;
    pump.inStep = [&] {
        if (pump.steps == 3) {
            gate.set_value();
        }
        return true;
    };
    bool done = false;
    EXPECT_TRUE(runBeside(pump, [&done, wait = gate.get_future().share()] {
        wait.get();
        done = true;
    }));
    EXPECT_TRUE(done);
    EXPECT_GE(pump.steps, 3);
}

TEST(BesideJob, oneThatIsToBeFinishedIsWaitedForWhenTheProgramEnds) {
    for (const bool raises : {false, true}) {
        StepPump pump;
        std::promise<void> gate;
        pump.inStep = [&]() -> bool {
            gate.set_value();
            if (raises) {
                throw std::runtime_error("in the step");
            }
            return false;
        };
        bool done = false;
        const auto job = [&done, wait = gate.get_future().share()] {
            wait.get();
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            done = true;
        };
        if (raises) {
            EXPECT_THROW(static_cast<void>(runBeside(pump, job, AtEnd::finish)),
                         std::runtime_error);
        } else {
            EXPECT_TRUE(runBeside(pump, job, AtEnd::finish));
        }
        EXPECT_TRUE(done);
        EXPECT_EQ(pump.steps, 1);
    }
}

TEST(BesideJob, theWindowStandsStillForTwoFramesAtMost) {
    static constexpr std::chrono::milliseconds kFiveFrames{83};
    StepPump pump;
    std::promise<void> stepped;
    pump.inStep = [&] {
        if (pump.steps == 1) {
            stepped.set_value();
        }
        return true;
    };
    auto step = std::make_shared<std::future<void>>(stepped.get_future());
    EXPECT_TRUE(runBeside(pump, [step] { static_cast<void>(step->wait_for(kFiveFrames)); }));
    EXPECT_GE(pump.steps, 1);
}

TEST(BesideJob, itEndsWithTheProgramAndTheJobGoesOnAlone) {
    StepPump pump;
    pump.inStep = [] { return false; };
    const auto gate = std::make_shared<std::promise<void>>();
    const auto ended = std::make_shared<std::promise<void>>();
    EXPECT_FALSE(runBeside(pump, [gate, ended] {
        gate->get_future().get();
        ended->set_value();
    }));
    EXPECT_EQ(pump.steps, 1);
    gate->set_value();
    ended->get_future().get();
}

TEST(BesideJob, whatTheJobRaisesIsRaised) {
    StepPump pump;
    EXPECT_THROW(static_cast<void>(runBeside(pump, [] { throw std::runtime_error("x"); })),
                 std::runtime_error);
}

TEST(BesideJob, whatTheJobHoldsIsGoneWhenItIsDone) {
    StepPump pump;
    auto held = std::make_shared<int>(1);
    EXPECT_TRUE(runBeside(pump, [held] { ++*held; }));
    EXPECT_EQ(*held, 2);
}

} // namespace
} // namespace tovik::host
