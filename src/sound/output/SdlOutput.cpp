// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/output/SdlOutput.h"

#include "sound/output/SdlLibrary.h"
#include "sound/output/SourceGate.h"

#include <thread>
#include <utility>

namespace tovik::sound {

namespace {

constexpr int kBlockFrames = 1024;

// Closing takes 50 ms as a rule and was seen to take 1.8 s on a server that works.
constexpr std::chrono::seconds kCloseLimit(3);

// SDL keeps an error text for every thread that it did not start, until it is told that the thread
// needs it no more.
struct ErrorTextOfThread {
    ErrorTextOfThread() = default;

    ~ErrorTextOfThread() { SdlLibrary::get().tlsCleanup(); }

    ErrorTextOfThread(const ErrorTextOfThread&) = delete;
    ErrorTextOfThread& operator=(const ErrorTextOfThread&) = delete;
};

} // namespace

SdlOutput::SdlOutput(std::string deviceName, std::string driver)
    : deviceName_(std::move(deviceName)), driver_(std::move(driver)),
      gate_(std::make_shared<SourceGate>()) {}

SdlOutput::~SdlOutput() {
    close();
    if (stillClosing()) {
        // Ending SDL would wait for the server as well; the process is about to end anyway.
        static_cast<void>(subsystem_.release());
    }
}

std::vector<std::string> SdlOutput::listDevices(const std::string& driver) {
    const auto subsystem = SdlSubsystem::start(driver, nullptr);
    return subsystem == nullptr ? std::vector<std::string>() : SdlSubsystem::deviceNames();
}

bool SdlOutput::open(MixSource& source) {
    if (SdlLibrary::load() == nullptr) {
        return false;
    }
    const ErrorTextOfThread errorText;
    close();
    if (stillClosing()) {
        return false;
    }
    if (lossSeen_.exchange(false)) {
        // SDL hears of new devices through its own connection to the server, which died as well.
        subsystem_.reset();
    }
    if (subsystem_ == nullptr) {
        subsystem_ = SdlSubsystem::start(driver_, this);
        if (subsystem_ == nullptr) {
            return false;
        }
    }
    SDL_AudioSpec wanted{};
    wanted.freq = kMixRate;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = kMixChannels;
    wanted.samples = kBlockFrames;
    wanted.callback = &SdlOutput::fill;
    wanted.userdata = gate_.get();
    SDL_AudioSpec obtained{};
    const SDL_AudioDeviceID device = SdlLibrary::get().openAudioDevice(
        deviceName_.empty() ? nullptr : deviceName_.c_str(), 0, &wanted, &obtained, 0);
    if (device == 0) {
        if (driver_.empty()) {
            subsystem_.reset(); // the next attempt may find another sound system
        }
        return false; // else it stays, to hear of the device coming back
    }
    driver_ = SdlSubsystem::driver();
    latencyFrames_ = 2 * obtained.samples;
    device_ = device;
    gate_->open(source);
    SdlLibrary::get().pauseAudioDevice(device, 0);
    if (SdlLibrary::get().getAudioDeviceStatus(device) == SDL_AUDIO_STOPPED) {
        lose(); // before its number was known here
    }
    return true;
}

void SdlOutput::close() {
    const SDL_AudioDeviceID device = device_.exchange(0);
    gate_->shutAndWait();
    if (device == 0) {
        return;
    }
    std::packaged_task<void()> task([device, gate = gate_] {
        const ErrorTextOfThread errorText;
        SdlLibrary::get().closeAudioDevice(device);
    });
    closing_ = task.get_future();
    std::thread(std::move(task)).detach();
    static_cast<void>(closing_.wait_for(kCloseLimit));
}

void SdlOutput::setPaused(bool paused) {
    const SDL_AudioDeviceID device = device_;
    if (device != 0) {
        SdlLibrary::get().pauseAudioDevice(device, paused ? 1 : 0);
    }
}

void SdlOutput::deviceRemoved(std::uint32_t device) {
    if (device != 0 && device == device_) { // 0: a device that nobody had opened
        lose();
    }
}

void SdlOutput::deviceAdded() {
    if (arrival_) {
        arrival_();
    }
}

void SdlOutput::lose() {
    // SDL goes on calling back for a device that is gone; positions must not go on with it.
    gate_->shut();
    if (!lossSeen_.exchange(true) && lost_) {
        lost_();
    }
}

bool SdlOutput::stillClosing() const {
    return closing_.valid() &&
           closing_.wait_for(std::chrono::seconds(0)) != std::future_status::ready;
}

void SdlOutput::fill(void* gate, std::uint8_t* bytes, int count) {
    static_cast<SourceGate*>(gate)->mix(
        {reinterpret_cast<float*>(bytes), static_cast<std::size_t>(count) / sizeof(float)});
}

} // namespace tovik::sound
