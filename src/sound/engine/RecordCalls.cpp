// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/RecordCalls.h"

#include <utility>

namespace tovik::sound {

namespace {

constexpr int kDefaultDevice = 0;
constexpr const char* kInputName = "Stereo Out";
constexpr std::uint32_t kInputMask = 0xFFFF;
constexpr std::uint32_t kInputOff = 0x10000;
constexpr std::uint32_t kInputOn = 0x20000;

} // namespace

bool RecordCalls::BASS_RecordInit(int device) {
    if (initialized_) {
        return core_.fail(ErrorCode::alreadyInitialized);
    }
    if (device != kDefaultDevice) {
        return core_.fail(ErrorCode::illegalDevice);
    }
    initialized_ = true;
    return core_.succeed();
}

std::optional<std::string> RecordCalls::BASS_RecordGetInputName(int index) {
    if (!initialized_ || index != 0) {
        core_.fail(initialized_ ? ErrorCode::illegalParameter : ErrorCode::notInitialized);
        return std::nullopt;
    }
    core_.succeed();
    return kInputName;
}

bool RecordCalls::BASS_RecordSetInput(std::uint32_t setting) {
    if (!initialized_) {
        return core_.fail(ErrorCode::notInitialized);
    }
    if ((setting & kInputMask) != 0) {
        return core_.fail(ErrorCode::illegalParameter);
    }
    inputOn_ = (setting & kInputOn) != 0 || (inputOn_ && (setting & kInputOff) == 0);
    applyInput();
    return core_.succeed();
}

Handle RecordCalls::BASS_RecordStart(std::uint32_t freq, std::uint32_t channels,
                                     RecordRoutine routine, std::uintptr_t user) {
    if (!initialized_ || freq != kMixRate || channels != kMixChannels) {
        core_.fail(!initialized_      ? ErrorCode::notInitialized
                   : freq != kMixRate ? ErrorCode::illegalRate
                                      : ErrorCode::unsupportedFormat);
        return kNoHandle;
    }
    endRecording();
    const Handle handle = core_.channels().newHandle();
    if (routine) {
        recorder_ = std::make_unique<Recorder>(handle, std::move(routine), user);
        applyInput();
    }
    core_.succeed();
    return handle;
}

void RecordCalls::applyInput() {
    core_.setCapture(recorder_ != nullptr && inputOn_ ? &recorder_->ring() : nullptr);
}

void RecordCalls::endRecording() {
    if (recorder_ != nullptr) {
        core_.setCapture(nullptr);
        recorder_.reset();
    }
}

bool RecordCalls::BASS_RecordFree() {
    if (!initialized_) {
        return core_.fail(ErrorCode::notInitialized);
    }
    endRecording();
    initialized_ = false;
    return core_.succeed();
}

} // namespace tovik::sound
