// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/VisualCalls.h"

#include "sound/engine/Heard.h"

#include <algorithm>
#include <array>

namespace tovik::sound {

static_assert(kVisualSamples == Spectrum::kSamples);
static_assert(kVisualValues == Spectrum::kBins);

Visual* VisualCalls::living(Handle visual) {
    const auto found = visuals_.find(visual);
    if (found == visuals_.end()) {
        core_.fail(host_.empty() ? ErrorCode::notAvailable : ErrorCode::invalidHandle);
        return nullptr;
    }
    core_.succeed();
    return found->second.get();
}

bool VisualCalls::BASS_SONIQUEVIS_CreateFakeSoniqueWnd() {
    return host_.empty() ? core_.fail(ErrorCode::notAvailable) : core_.succeed();
}

Handle VisualCalls::BASS_SONIQUEVIS_CreateVis(std::string_view path, std::string_view iniPath,
                                              std::uint32_t /*flags*/, int width, int height) {
    if (!BASS_SONIQUEVIS_CreateFakeSoniqueWnd()) {
        return kNoHandle;
    }
    if (width < 1 || height < 1) {
        core_.fail(ErrorCode::illegalParameter);
        return kNoHandle;
    }
    const Handle handle = core_.channels().newHandle();
    visuals_.emplace(handle, std::make_unique<Visual>(host_, path, iniPath, width, height));
    return handle;
}

std::string VisualCalls::BASS_SONIQUEVIS_GetName(Handle visual) {
    const Visual* const found = living(visual);
    return found == nullptr ? std::string() : found->name();
}

bool VisualCalls::BASS_SONIQUEVIS_Render(Handle visual, Handle channel,
                                         const VisualSurface& surface) {
    Visual* const found = living(visual);
    if (found == nullptr) {
        return false;
    }
    const bool shown = found->show(surface);
    if (channel != kNoHandle && found->free()) {
        Channel* const heard = core_.channels().find(channel);
        // What is gone is heard as silence.
        found->ask(heard != nullptr && !heard->isDecoding() ? hear(*heard) : HeardSound{});
    }
    return shown;
}

const HeardSound& VisualCalls::hear(Channel& channel) {
    if (!spectrum_) {
        spectrum_.emplace();
    }
    std::array<SpectrumTap::Frame, kVisualSamples> frames{};
    lookAtHeard(core_, channel, frames);
    std::array<float, kVisualSamples> mono{};
    std::ranges::transform(frames, mono.begin(), meanOf);
    std::ranges::transform(frames, heard_.left.begin(), &SpectrumTap::Frame::left);
    std::ranges::transform(frames, heard_.right.begin(), &SpectrumTap::Frame::right);
    spectrum_->measure(mono, heard_.spectrum);
    return heard_;
}

bool VisualCalls::BASS_SONIQUEVIS_Clicked(Handle visual, int x, int y) {
    Visual* const found = living(visual);
    return found != nullptr && found->click(x, y);
}

bool VisualCalls::BASS_SONIQUEVIS_Resize(Handle visual, int width, int height) {
    Visual* const found = living(visual);
    return found != nullptr &&
           (found->resize(width, height) || core_.fail(ErrorCode::illegalParameter));
}

bool VisualCalls::BASS_SONIQUEVIS_Free(Handle visual) {
    if (lists_.erase(visual) > 0) {
        return core_.succeed();
    }
    if (living(visual) == nullptr) {
        return false;
    }
    visuals_.erase(visual);
    return core_.succeed();
}

Handle VisualCalls::listVisuals(const VisualFolders& folders) {
    if (!BASS_SONIQUEVIS_CreateFakeSoniqueWnd()) {
        return kNoHandle;
    }
    const Handle handle = core_.channels().newHandle();
    lists_.emplace(handle, std::make_unique<VisualList>(host_, folders));
    return handle;
}

std::vector<VisualFile> VisualCalls::listedVisuals(Handle listing) {
    const auto found = lists_.find(listing);
    return found == lists_.end() ? std::vector<VisualFile>() : found->second->files();
}

int VisualCalls::visualDescriptor(Handle visual) {
    if (const auto list = lists_.find(visual); list != lists_.end()) {
        return list->second->descriptor();
    }
    const Visual* const found = living(visual);
    return found == nullptr ? -1 : found->descriptor();
}

VisualNews VisualCalls::visualNews(Handle visual) {
    if (const auto list = lists_.find(visual); list != lists_.end()) {
        return list->second->take();
    }
    Visual* const found = living(visual);
    return found == nullptr ? VisualNews::ended : found->take();
}

bool VisualCalls::visualIsBusy(Handle visual) {
    const Visual* const found = living(visual);
    return found != nullptr && found->busy();
}

} // namespace tovik::sound
