// SPDX-License-Identifier: GPL-3.0-or-later
// A simulated device with a thread of its own that takes the mix as fast as it can: what a test
// needs to press many callbacks into a short time.
#pragma once

#include "sound/output/SimulatedOutput.h"

#include <thread>

namespace tovik::sound {

class FreeRunningOutput final : public SimulatedOutput {
public:
    FreeRunningOutput() : FreeRunningOutput(Settings()) {}

    explicit FreeRunningOutput(const Settings& settings);

    /// The device must be closed by then.
    ~FreeRunningOutput() override;

    FreeRunningOutput(const FreeRunningOutput&) = delete;
    FreeRunningOutput& operator=(const FreeRunningOutput&) = delete;

private:
    void run(const std::stop_token& stop, std::size_t blockFrames);

    std::jthread thread_;
};

} // namespace tovik::sound
