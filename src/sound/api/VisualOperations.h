// SPDX-License-Identifier: GPL-3.0-or-later
// Visual plug-ins. Interface thread only.
#pragma once

#include "sound/api/Types.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::sound {

/// Where a plug-in draws: rows of 32-bit pixels, 0xffRRGGBB, without gaps.
struct VisualSurface {
    std::span<std::uint32_t> pixels;
    int width = 0;
    int height = 0;
};

/// The longest side of a picture, in pixels.
inline constexpr int kMostVisualSide = 8192;

/// What became of a plug-in, or of a listing, since one last asked.
enum class VisualNews {
    nothing,
    picture, ///< it has finished one
    ended,   ///< by itself: it draws no more. A listing is complete
};

/// Where plug-ins are looked for.
struct VisualFolders {
    std::string knownNames; ///< the file that keeps their names from one start to the next
    std::vector<std::string> folders;
};

struct VisualFile {
    std::string path;
    std::string name; ///< empty: it cannot be loaded

    friend bool operator==(const VisualFile&, const VisualFile&) = default;
};

/// A plug-in draws in a process of its own, which no operation waits for.
class VisualOperations {
public:
    virtual ~VisualOperations() = default;

    /// Whether there is what plug-ins need; without it none can be created.
    virtual bool BASS_SONIQUEVIS_CreateFakeSoniqueWnd() = 0;

    /// Begins a plug-in that draws pictures of that size; `iniPath` is the file of its settings. A
    /// handle does not mean that it can be loaded: one that cannot has ended.
    [[nodiscard]] virtual Handle BASS_SONIQUEVIS_CreateVis(std::string_view path,
                                                           std::string_view iniPath,
                                                           std::uint32_t flags, int width,
                                                           int height) = 0;

    /// What it calls itself; empty before its first picture.
    [[nodiscard]] virtual std::string BASS_SONIQUEVIS_GetName(Handle visual) = 0;

    /// Copies the last picture that was finished to `surface`, if that has its size, and asks for
    /// the next one, of what is heard of `channel`: unless one is being drawn, or the
    /// handle is none. Whether a picture was copied.
    virtual bool BASS_SONIQUEVIS_Render(Handle visual, Handle channel,
                                        const VisualSurface& surface) = 0;
    virtual bool BASS_SONIQUEVIS_Clicked(Handle visual, int x, int y) = 0;

    /// The next pictures have that size; what is being drawn is lost. False for a size out of
    /// bounds and where it cannot be had: then it shows nothing.
    virtual bool BASS_SONIQUEVIS_Resize(Handle visual, int width, int height) = 0;

    /// Ends a plug-in or a listing.
    virtual bool BASS_SONIQUEVIS_Free(Handle visual) = 0;

    /// Begins to list the plug-ins of some folders, one folder after the other, each by ending and
    /// name. Returns the handle of the listing.
    [[nodiscard]] virtual Handle listVisuals(const VisualFolders& folders) = 0;

    /// What was listed so far.
    [[nodiscard]] virtual std::vector<VisualFile> listedVisuals(Handle listing) = 0;

    /// What becomes readable when there is news of a plug-in or a listing; -1 once it has ended.
    /// It belongs to the library and lasts until `visualNews` says that it has ended, or until it
    /// is freed.
    [[nodiscard]] virtual int visualDescriptor(Handle visual) = 0;

    /// Takes in what came.
    [[nodiscard]] virtual VisualNews visualNews(Handle visual) = 0;

    /// Whether a plug-in was told something that it has not done yet: to begin, to draw, another
    /// size, a click. What it does is followed by something to take in.
    [[nodiscard]] virtual bool visualIsBusy(Handle visual) = 0;
};

} // namespace tovik::sound
