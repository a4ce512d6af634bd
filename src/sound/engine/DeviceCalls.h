// SPDX-License-Identifier: GPL-3.0-or-later
// The operations on the output as a whole. Interface thread only.
#pragma once

#include "sound/api/DeviceOperations.h"
#include "sound/engine/EngineCore.h"

namespace tovik::sound {

class DeviceCalls : public virtual DeviceOperations {
public:
    explicit DeviceCalls(EngineCore& core) : core_(core) {}

    std::uint32_t BASS_GetVersion() override;
    bool BASS_Init(int device, std::uint32_t freq, std::uint32_t flags, std::uintptr_t window,
                   std::uintptr_t clsid) override;
    bool BASS_Free() override;
    bool BASS_Start() override;
    bool BASS_Pause() override;
    bool BASS_Stop() override;
    bool BASS_SetVolume(int percent) override;
    bool BASS_GetInfo(BASS_INFO& info) override;
    std::uint32_t BASS_SetConfig(std::uint32_t option, std::uint32_t value) override;

    ErrorCode BASS_ErrorGetCode() override { return core_.error(); }

private:
    EngineCore& core_;
    std::uint32_t formatChecks_ = 0;
};

} // namespace tovik::sound
