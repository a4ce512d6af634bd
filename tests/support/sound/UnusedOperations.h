// SPDX-License-Identifier: GPL-3.0-or-later
// The families of the sound library that the fake leaves without effect: every call fails.
#pragma once

#include "sound/SoundLibrary.h"

namespace tovik::test {

class UnusedEncoders : public virtual sound::EncodeOperations {
public:
    bool BASS_Encode_Start(sound::Handle, const sound::EncoderCommand&, std::uint32_t) override {
        return false;
    }

    bool BASS_Encode_Stop(sound::Handle) override { return false; }

    sound::Handle BASS_WMA_EncodeOpenFile(std::uint32_t, std::uint32_t, std::uint32_t,
                                          std::string_view) override {
        return sound::kNoHandle;
    }

    bool BASS_WMA_EncodeSetTag(sound::Handle, std::string_view, std::string_view) override {
        return false;
    }

    bool BASS_WMA_EncodeWrite(sound::Handle, std::span<const std::byte>) override { return false; }

    bool BASS_WMA_EncodeClose(sound::Handle) override { return false; }

    std::optional<sound::EncodeReport> encodeReport(sound::Handle) override { return {}; }
};

class UnusedVisuals : public virtual sound::VisualOperations {
public:
    bool BASS_SONIQUEVIS_CreateFakeSoniqueWnd() override { return false; }

    sound::Handle BASS_SONIQUEVIS_CreateVis(std::string_view, std::string_view, std::uint32_t, int,
                                            int) override {
        return sound::kNoHandle;
    }

    std::string BASS_SONIQUEVIS_GetName(sound::Handle) override { return {}; }

    bool BASS_SONIQUEVIS_Render(sound::Handle, sound::Handle,
                                const sound::VisualSurface&) override {
        return false;
    }

    bool BASS_SONIQUEVIS_Clicked(sound::Handle, int, int) override { return false; }

    bool BASS_SONIQUEVIS_Resize(sound::Handle, int, int) override { return false; }

    bool BASS_SONIQUEVIS_Free(sound::Handle) override { return false; }
};

} // namespace tovik::test
