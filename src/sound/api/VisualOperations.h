// SPDX-License-Identifier: GPL-3.0-or-later
// Visual plug-ins. Interface thread only.
#pragma once

#include "sound/api/Types.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tovik::sound {

/// Where a plug-in draws: rows of 32-bit pixels, 0xffRRGGBB, without gaps.
struct VisualSurface {
    std::span<std::uint32_t> pixels;
    int width = 0;
    int height = 0;
};

class VisualOperations {
public:
    virtual ~VisualOperations() = default;

    /// Makes ready what plug-ins expect to find.
    virtual bool BASS_SONIQUEVIS_CreateFakeSoniqueWnd() = 0;
    [[nodiscard]] virtual Handle BASS_SONIQUEVIS_CreateVis(std::string_view path,
                                                           std::string_view iniPath,
                                                           std::uint32_t flags, int width,
                                                           int height) = 0;
    [[nodiscard]] virtual std::string BASS_SONIQUEVIS_GetName(Handle visual) = 0;
    virtual bool BASS_SONIQUEVIS_Render(Handle visual, Handle channel,
                                        const VisualSurface& surface) = 0;
    virtual bool BASS_SONIQUEVIS_Clicked(Handle visual, int x, int y) = 0;
    virtual bool BASS_SONIQUEVIS_Resize(Handle visual, int width, int height) = 0;
    virtual bool BASS_SONIQUEVIS_Free(Handle visual) = 0;
};

} // namespace tovik::sound
