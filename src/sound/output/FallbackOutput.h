// SPDX-License-Identifier: GPL-3.0-or-later
// Two ways to the sound of a system: the second one is made and tried while the first one has never
// worked. Whichever opens first is used from then on, so that a player whose sound server is
// started anew does not take the card away from it. Opened, paused and closed by one thread.
#pragma once

#include "sound/output/OutputDevice.h"

#include <atomic>
#include <memory>

namespace tovik::sound {

class FallbackOutput final : public OutputDevice {
public:
    using Maker = std::function<std::unique_ptr<OutputDevice>()>;

    /// `second` is called when the first did not open, on the thread that opens, until it has made
    /// a device. It gives null where none is to be tried.
    FallbackOutput(std::unique_ptr<OutputDevice> first, Maker second);

    bool open(MixSource& source) override;
    void close() override;
    void setPaused(bool paused) override;

    [[nodiscard]] int latencyFrames() const noexcept override;

    [[nodiscard]] bool mixesAhead() const noexcept override { return first_->mixesAhead(); }

    [[nodiscard]] bool opensPaused() const noexcept override;
    [[nodiscard]] std::optional<std::int64_t> heardClock() const noexcept override;
    void wake() noexcept override;
    void onLost(std::function<void()> routine) override;
    void onArrival(std::function<void()> routine) override;

private:
    const std::unique_ptr<OutputDevice> first_;
    std::unique_ptr<OutputDevice> second_;
    const Maker makeSecond_;
    std::function<void()> lost_;
    std::function<void()> arrival_;
    std::atomic<OutputDevice*> current_; ///< never null
    bool decided_ = false;
};

} // namespace tovik::sound
