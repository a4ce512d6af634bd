// SPDX-License-Identifier: GPL-3.0-or-later
// The real device where there is no sound server: ALSA, or whatever SDL finds. Opened, paused and
// closed by one thread, which need not be the main thread; the mix is taken on SDL's audio thread.
#pragma once

#include "sound/output/OutputDevice.h"
#include "sound/output/SdlSubsystem.h"

#include <atomic>
#include <future>
#include <memory>
#include <string>
#include <vector>

namespace tovik::sound {

class SourceGate;

class SdlOutput final : public OutputDevice, private SdlListener {
public:
    /// The device with this name, one of `listDevices`; the system's default if it is empty.
    /// Nothing is asked of the system before `open`.
    /// `driver` is SDL's name of the sound system to use ("alsa"), empty for the first that works.
    explicit SdlOutput(std::string deviceName = {}, std::string driver = {});
    ~SdlOutput() override;

    SdlOutput(const SdlOutput&) = delete;
    SdlOutput& operator=(const SdlOutput&) = delete;

    /// The names of the output devices of this machine. Takes some milliseconds.
    [[nodiscard]] static std::vector<std::string> listDevices(const std::string& driver = {});

    /// After the first success always the same sound system is used, so that a player whose sound
    /// server is started anew does not take the card away from it.
    bool open(MixSource& source) override;

    /// Usually 50 ms; never longer than some seconds, even if the sound server hangs. Then SDL is
    /// left closing in the background, and `open` fails until it has finished.
    void close() override;

    void setPaused(bool paused) override;

    /// SDL's two blocks; what the sound system adds to that is not known.
    [[nodiscard]] int latencyFrames() const noexcept override { return latencyFrames_.load(); }

    void onLost(std::function<void()> routine) override { lost_ = std::move(routine); }

    void onArrival(std::function<void()> routine) override { arrival_ = std::move(routine); }

private:
    void deviceRemoved(std::uint32_t device) override;
    void deviceAdded() override;
    void lose();
    [[nodiscard]] bool stillClosing() const;

    static void fill(void* gate, std::uint8_t* bytes, int count);

    const std::string deviceName_;
    std::string driver_; // that was asked for, or of the first success
    std::function<void()> lost_;
    std::function<void()> arrival_;
    std::unique_ptr<SdlSubsystem> subsystem_;
    std::shared_ptr<SourceGate> gate_;      // used by the callback, outlives SDL's device
    std::atomic<std::uint32_t> device_ = 0; // SDL's number of the open device, else 0
    std::atomic<bool> lossSeen_ = false;    // since the opening
    std::atomic<int> latencyFrames_ = 0;
    std::future<void> closing_;
};

} // namespace tovik::sound
