// SPDX-License-Identifier: GPL-3.0-or-later
// The families of the sound library that the fake leaves without effect: every call fails.
#pragma once

#include "sound/SoundLibrary.h"

namespace tovik::test {

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
