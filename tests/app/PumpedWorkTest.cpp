// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/PumpedWork.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace tovik::app {
namespace {

/// Lets the work go on after some steps.
class CountingPump final : public host::MessagePump {
public:
    bool Step() override {
        if (++steps == 3) {
            released = true;
        }
        return goesOn;
    }

    int steps = 0;
    bool goesOn = true;
    std::atomic<bool> released{false};
};

TEST(PumpedWork, longWorkLetsTheProgramLive) {
    CountingPump pump;
    PumpedWork work(pump);
    std::thread::id worker;
    work.run([&] {
        worker = std::this_thread::get_id();
        while (!pump.released) {
            std::this_thread::yield();
        }
    });
    EXPECT_GE(pump.steps, 3);
    EXPECT_NE(worker, std::this_thread::get_id());
}

TEST(PumpedWork, isDoneToItsEndWhenTheProgramEnds) {
    CountingPump pump;
    pump.goesOn = false;
    PumpedWork work(pump);
    bool done = false;
    std::thread release([&pump] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        pump.released = true;
    });
    work.run([&] {
        while (!pump.released) {
            std::this_thread::yield();
        }
        done = true;
    });
    release.join();
    EXPECT_TRUE(done);
    EXPECT_EQ(pump.steps, 1);
}

} // namespace
} // namespace tovik::app
