// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/mix/MissedTurn.h"

#include "sound/mix/FeedLine.h"

#include <algorithm>

namespace tovik::sound {

void MissedTurn::remember(std::span<const float> block) noexcept {
    if (block.size() >= 2) {
        std::copy_n(block.last(2).begin(), 2, lastFrame_.begin());
    }
}

void MissedTurn::bridge(std::span<float> block) noexcept {
    if (!missing_) {
        heldFrame_ = lastFrame_;
        held_.jumpTo(1.0F);
        held_.rampTo(0.0F, kRampFrames);
        missing_ = true;
    }
    for (std::size_t i = 0; i + 1 < block.size(); i += 2) {
        const float share = held_.next();
        block[i] = heldFrame_[0] * share;
        block[i + 1] = heldFrame_[1] * share;
    }
    remember(block);
}

void MissedTurn::pass(std::span<float> block, bool sounds) noexcept {
    if (missing_) {
        missing_ = false;
        // Where nothing sounded there is nothing to lead over from: a track begins whole.
        mixed_.jumpTo(sounds_ ? 0.0F : 1.0F);
        mixed_.rampTo(1.0F, kRampFrames);
    }
    for (std::size_t i = 0; !idle() && i + 1 < block.size(); i += 2) {
        const float heldShare = held_.next();
        const float mixedShare = mixed_.next();
        block[i] = block[i] * mixedShare + heldFrame_[0] * heldShare;
        block[i + 1] = block[i + 1] * mixedShare + heldFrame_[1] * heldShare;
    }
    sounds_ = sounds;
    remember(block);
}

} // namespace tovik::sound
