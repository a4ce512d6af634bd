// SPDX-License-Identifier: GPL-3.0-or-later
// Visual plug-ins that draw when a test says so. One thread.
#pragma once

#include "sound/api/VisualOperations.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tovik::test {

class FakeVisuals : public virtual sound::VisualOperations {
public:
    struct Visual {
        std::string path;
        std::string ini;
        int width = 0;
        int height = 0;
        bool asked = false;
        bool owes = true;           ///< to begin, another size or a click
        bool took = false;          ///< has done that by the next news
        std::uint32_t pictures = 0; ///< each is filled with its number
        sound::VisualNews news = sound::VisualNews::nothing;
        sound::Handle heard = sound::kNoHandle;
    };

    // What a test sets and looks at --------------------------------------------------------------

    bool canDraw = true;                      ///< whether plug-ins can be created
    bool canTalk = true;                      ///< whether their processes can be reached
    bool canResize = true;                    ///< whether they take another size
    std::vector<sound::VisualFile> shelf;     ///< what a listing finds
    bool shelfIsReady = true;                 ///< whether it has found it
    std::vector<sound::VisualFolders> looked; ///< where was looked
    std::map<sound::Handle, Visual> visuals;  ///< the living ones, the handles from 2001 on
    std::vector<std::string> visualCalls;

    /// The one that lives.
    [[nodiscard]] Visual& visual() { return visuals.at(visuals.begin()->first); }

    [[nodiscard]] int descriptor() const { return static_cast<int>(visuals.begin()->first); }

    [[nodiscard]] static constexpr int listDescriptor() { return kListing; }

    // The library --------------------------------------------------------------------------------

    bool BASS_SONIQUEVIS_CreateFakeSoniqueWnd() override {
        visualCalls.emplace_back("window");
        return canDraw;
    }

    sound::Handle BASS_SONIQUEVIS_CreateVis(std::string_view path, std::string_view iniPath,
                                            std::uint32_t flags, int width, int height) override {
        visualCalls.push_back("create " + std::string(path) + " " + std::to_string(flags) + " " +
                              std::to_string(width) + " x " + std::to_string(height));
        if (!canDraw) {
            return sound::kNoHandle;
        }
        visuals[++last_] = {.path = std::string(path),
                            .ini = std::string(iniPath),
                            .width = width,
                            .height = height};
        return last_;
    }

    std::string BASS_SONIQUEVIS_GetName(sound::Handle) override { return "a plug-in"; }

    bool BASS_SONIQUEVIS_Render(sound::Handle handle, sound::Handle channel,
                                const sound::VisualSurface& surface) override {
        Visual& visual = visuals.at(handle);
        const bool shown = !surface.pixels.empty() && visual.pictures > 0;
        if (shown) {
            std::ranges::fill(surface.pixels, visual.pictures);
            visualCalls.emplace_back("show");
        }
        if (channel != sound::kNoHandle && !visual.asked) {
            visualCalls.emplace_back("ask");
            visual.asked = true;
            visual.heard = channel;
        }
        return shown;
    }

    bool BASS_SONIQUEVIS_Clicked(sound::Handle handle, int x, int y) override {
        visualCalls.push_back("click " + std::to_string(x) + " " + std::to_string(y));
        visuals.at(handle).owes = true;
        return true;
    }

    bool BASS_SONIQUEVIS_Resize(sound::Handle handle, int width, int height) override {
        visualCalls.push_back("size " + std::to_string(width) + " x " + std::to_string(height));
        visuals.at(handle).asked = false;
        visuals.at(handle).owes = canResize;
        return canResize;
    }

    bool BASS_SONIQUEVIS_Free(sound::Handle handle) override {
        if (handle != kListing) {
            visualCalls.emplace_back("free");
        }
        return visuals.erase(handle) > 0;
    }

    sound::Handle listVisuals(const sound::VisualFolders& folders) override {
        looked.push_back(folders);
        return canDraw ? kListing : sound::kNoHandle;
    }

    std::vector<sound::VisualFile> listedVisuals(sound::Handle listing) override {
        return listing == kListing ? shelf : std::vector<sound::VisualFile>();
    }

    int visualDescriptor(sound::Handle visual) override {
        return canTalk ? static_cast<int>(visual) : -1;
    }

    bool visualIsBusy(sound::Handle handle) override {
        const Visual& visual = visuals.at(handle);
        return visual.asked || visual.owes;
    }

    sound::VisualNews visualNews(sound::Handle handle) override {
        if (handle == kListing) {
            return shelfIsReady ? sound::VisualNews::ended : sound::VisualNews::nothing;
        }
        Visual& visual = visuals.at(handle);
        visual.owes = visual.owes && visual.news == sound::VisualNews::nothing && !visual.took;
        if (visual.news == sound::VisualNews::picture) {
            visual.asked = false;
            ++visual.pictures;
        }
        return std::exchange(visual.news, sound::VisualNews::nothing);
    }

private:
    static constexpr sound::Handle kListing = 1999;
    sound::Handle last_ = 2000;
};

} // namespace tovik::test
