// SPDX-License-Identifier: GPL-3.0-or-later
// The families that this engine does not offer: every operation fails with notAvailable.
// Interface thread only.
#pragma once

#include "sound/api/VisualOperations.h"
#include "sound/engine/EngineCore.h"

namespace tovik::sound {

class UnavailableCalls : public virtual VisualOperations {
public:
    explicit UnavailableCalls(EngineCore& core) : core_(core) {}

    bool BASS_SONIQUEVIS_CreateFakeSoniqueWnd() override;
    Handle BASS_SONIQUEVIS_CreateVis(std::string_view path, std::string_view iniPath,
                                     std::uint32_t flags, int width, int height) override;
    std::string BASS_SONIQUEVIS_GetName(Handle visual) override;
    bool BASS_SONIQUEVIS_Render(Handle visual, Handle channel,
                                const VisualSurface& surface) override;
    bool BASS_SONIQUEVIS_Clicked(Handle visual, int x, int y) override;
    bool BASS_SONIQUEVIS_Resize(Handle visual, int width, int height) override;
    bool BASS_SONIQUEVIS_Free(Handle visual) override;

private:
    void noteUnavailable() { core_.fail(ErrorCode::notAvailable); }

    EngineCore& core_;
};

} // namespace tovik::sound
