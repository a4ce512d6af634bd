// SPDX-License-Identifier: GPL-3.0-or-later
// The operations on visual plug-ins. Interface thread only.
#pragma once

#include "sound/api/VisualOperations.h"
#include "sound/engine/EngineCore.h"
#include "sound/mix/Spectrum.h"
#include "sound/visual/Visual.h"
#include "sound/visual/VisualList.h"

#include <map>
#include <memory>
#include <optional>
#include <string>

namespace tovik::sound {

class VisualCalls : public virtual VisualOperations {
public:
    /// `host` is the program in which plug-ins draw; empty: all fails with notAvailable.
    VisualCalls(EngineCore& core, std::string host) : core_(core), host_(std::move(host)) {}

    bool BASS_SONIQUEVIS_CreateFakeSoniqueWnd() override;
    Handle BASS_SONIQUEVIS_CreateVis(std::string_view path, std::string_view iniPath,
                                     std::uint32_t flags, int width, int height) override;
    std::string BASS_SONIQUEVIS_GetName(Handle visual) override;
    bool BASS_SONIQUEVIS_Render(Handle visual, Handle channel,
                                const VisualSurface& surface) override;
    bool BASS_SONIQUEVIS_Clicked(Handle visual, int x, int y) override;
    bool BASS_SONIQUEVIS_Resize(Handle visual, int width, int height) override;
    bool BASS_SONIQUEVIS_Free(Handle visual) override;
    Handle listVisuals(const VisualFolders& folders) override;
    std::vector<VisualFile> listedVisuals(Handle listing) override;
    int visualDescriptor(Handle visual) override;
    VisualNews visualNews(Handle visual) override;
    bool visualIsBusy(Handle visual) override;

private:
    /// The plug-in, or null with the reason noted.
    [[nodiscard]] Visual* living(Handle visual);
    [[nodiscard]] const HeardSound& hear(Channel& channel);

    EngineCore& core_;
    std::string host_;
    std::map<Handle, std::unique_ptr<Visual>> visuals_;
    std::map<Handle, std::unique_ptr<VisualList>> lists_;
    std::optional<Spectrum> spectrum_; ///< made when first asked for
    HeardSound heard_;
};

} // namespace tovik::sound
