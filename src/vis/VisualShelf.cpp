// SPDX-License-Identifier: GPL-3.0-or-later
#include "vis/VisualShelf.h"

#include <utility>

namespace tovik::vis {

VisualShelf::VisualShelf(const player::Core& core, host::Watches& watches,
                         std::function<void()> filled)
    : core_(core), watches_(watches), filled_(std::move(filled)) {}

void VisualShelf::look(const sound::VisualFolders& folders) {
    if (std::exchange(looked_, true)) {
        return;
    }
    listing_ = core_.sound.listVisuals(folders);
    if (listing_ == sound::kNoHandle) {
        fill();
        return;
    }
    watch_ = watches_.watch(core_.sound.visualDescriptor(listing_), [this] { answered(); });
}

void VisualShelf::answered() {
    if (core_.sound.visualNews(listing_) == sound::VisualNews::ended) {
        fill();
    }
}

void VisualShelf::fill() {
    watch_.reset();
    files_ = core_.sound.listedVisuals(listing_);
    if (const sound::Handle listing = std::exchange(listing_, sound::kNoHandle);
        listing != sound::kNoHandle) {
        core_.sound.BASS_SONIQUEVIS_Free(listing);
    }
    filled_();
}

} // namespace tovik::vis
