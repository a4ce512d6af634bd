// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/DeviceCalls.h"

#include <utility>

namespace tovik::sound {

namespace {

constexpr std::uint32_t kVersion = 0x00000002;
constexpr int kDefaultDevice = 1;
constexpr std::uint32_t kInfoSize = 60;
constexpr std::uint32_t kSoundInterfaceVersion = 9;
constexpr std::uint32_t kFormatCheckOption = 9;
constexpr std::uint32_t kUnknownOption = 0xFFFFFFFF;

} // namespace

std::uint32_t DeviceCalls::BASS_GetVersion() {
    return kVersion;
}

bool DeviceCalls::BASS_Init(int device, std::uint32_t freq, std::uint32_t /*flags*/,
                            std::uintptr_t /*window*/, std::uintptr_t /*clsid*/) {
    if (core_.initialized()) {
        return core_.fail(ErrorCode::alreadyInitialized);
    }
    if (device != kDefaultDevice) {
        return core_.fail(ErrorCode::illegalDevice);
    }
    if (freq != kMixRate) {
        return core_.fail(ErrorCode::illegalRate);
    }
    return core_.initialize() ? core_.succeed() : core_.fail(ErrorCode::noDriver);
}

bool DeviceCalls::BASS_Free() {
    if (!core_.initialized()) {
        return core_.fail(ErrorCode::notInitialized);
    }
    core_.shutDown();
    return core_.succeed();
}

bool DeviceCalls::BASS_Start() {
    if (!core_.initialized()) {
        return core_.fail(ErrorCode::notInitialized);
    }
    core_.setPaused(false);
    return core_.succeed();
}

bool DeviceCalls::BASS_Pause() {
    if (!core_.initialized()) {
        return core_.fail(ErrorCode::notInitialized);
    }
    if (core_.paused()) {
        return core_.fail(ErrorCode::notPlaying);
    }
    core_.setPaused(true);
    return core_.succeed();
}

bool DeviceCalls::BASS_Stop() {
    if (!core_.initialized()) {
        return core_.fail(ErrorCode::notInitialized);
    }
    core_.channels().forEach([this](Channel& channel) { core_.stop(channel); });
    core_.setPaused(true);
    return core_.succeed();
}

bool DeviceCalls::BASS_SetVolume(int percent) {
    if (percent < 0 || percent > 100) {
        return core_.fail(ErrorCode::illegalParameter);
    }
    core_.post(command::SetMaster{static_cast<float>(percent) / 100.0F});
    return core_.succeed();
}

bool DeviceCalls::BASS_GetInfo(BASS_INFO& info) {
    if (!core_.initialized()) {
        return core_.fail(ErrorCode::notInitialized);
    }
    if (info.size != kInfoSize) {
        return core_.fail(ErrorCode::illegalParameter);
    }
    info.dsver = kSoundInterfaceVersion;
    info.freq = kMixRate;
    info.latency = static_cast<std::uint32_t>(core_.device().latencyFrames() * 1000 / kMixRate);
    return core_.succeed();
}

std::uint32_t DeviceCalls::BASS_SetConfig(std::uint32_t option, std::uint32_t value) {
    if (option != kFormatCheckOption) {
        core_.fail(ErrorCode::illegalParameter);
        return kUnknownOption;
    }
    core_.succeed();
    return std::exchange(formatChecks_, value);
}

} // namespace tovik::sound
