// SPDX-License-Identifier: GPL-3.0-or-later
// A device that never answers at the end of a keeper.
#include "sound/output/KeeperRig.h"

#include <gtest/gtest.h>

#include <array>
#include <future>

namespace tovik::sound {
namespace {

// A device whose `open` or `close` does not return before the test lets it, and which goes on to
// take samples then.
class HangingOutput final : public SimulatedOutput {
public:
    struct Gate {
        std::promise<void> reached;
        std::promise<void> opened;
        std::promise<void> gone;
    };

    HangingOutput(std::shared_ptr<Gate> gate, DeviceCall hangsIn)
        : gate_(std::move(gate)), hangsIn_(hangsIn) {}

    ~HangingOutput() override { gate_->gone.set_value(); }

    bool open(MixSource& source) override {
        source_ = &source;
        hang(DeviceCall::opened);
        return SimulatedOutput::open(source);
    }

    void close() override {
        hang(DeviceCall::closed);
        SimulatedOutput::close();
    }

private:
    void hang(DeviceCall call) {
        if (call == hangsIn_) {
            gate_->reached.set_value();
            gate_->opened.get_future().wait();
            std::array<float, 8> block{};
            source_->mix(block);
        }
    }

    const std::shared_ptr<Gate> gate_;
    const DeviceCall hangsIn_;
    MixSource* source_ = nullptr;
};

class HangingDevice : public testing::TestWithParam<DeviceCall> {};

TEST_P(HangingDevice, DoesNotHoldUpTheEndNorTouchesTheMixAfterIt) {
    const auto gate = std::make_shared<HangingOutput::Gate>();
    std::future<void> gone = gate->gone.get_future();
    auto source = std::make_unique<CountingSource>();
    auto observer = std::make_unique<CountingObserver>();
    auto keeper = std::make_unique<DeviceKeeper>(std::make_unique<HangingOutput>(gate, GetParam()),
                                                 *observer, kHasty);
    std::future<void> reached = gate->reached.get_future();
    EXPECT_TRUE(keeper->openNow(*source));
    if (GetParam() == DeviceCall::opened) {
        reached.wait();
    } else {
        ASSERT_TRUE(eventually([&] { return keeper->callbackRunning(); }));
    }
    keeper.reset(); // the test hangs here if the keeper waits
    EXPECT_EQ(gone.wait_for(std::chrono::seconds(0)), std::future_status::timeout);
    EXPECT_EQ(source->frames(), 0U);
    EXPECT_EQ(observer->stopped, 0);
    source.reset(); // the sanitizers tell if one of them is still in use
    observer.reset();
    gate->opened.set_value();
    EXPECT_EQ(gone.wait_for(std::chrono::seconds(20)), std::future_status::ready);
}

INSTANTIATE_TEST_SUITE_P(At, HangingDevice,
                         testing::Values(DeviceCall::opened, DeviceCall::closed));

} // namespace
} // namespace tovik::sound
