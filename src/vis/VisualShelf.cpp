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
    // What cannot begin never has news.
    const int news = listing_ != sound::kNoHandle ? core_.sound.visualDescriptor(listing_) : -1;
    if (news < 0) {
        fill();
        return;
    }
    watch_ = watches_.watch(news, [this] { answered(); });
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
