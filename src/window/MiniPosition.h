// SPDX-License-Identifier: GPL-3.0-or-later
// The user's hand on the position bar of the mini window. Interface thread.
#pragma once

#include "window/MiniElements.h"
#include "window/PositionGrip.h"

namespace tovik::window {

/// How far the bar is filled by a pointer that is `x` skin pixels from its left edge, 0 to 100. A
/// deliberate oddity: that is 16 pixels more than where the pointer is, so that what is left of the
/// bar is the start, and its last 16 pixels are the end (`Comfort::aimsAtPointer` goes without).
[[nodiscard]] constexpr double playedAt(double x) noexcept {
    constexpr double kAhead = 16;
    constexpr double kLast = 84;
    constexpr double kMost = 100;
    if (x + kAhead < 0) {
        x = -kAhead;
    } else if (x + kAhead > kMost) {
        x = kLast;
    }
    return x + kAhead;
}

class MiniPosition final : public PositionGrip {
public:
    /// All of them outlive the bar.
    MiniPosition(const player::Core& core, player::TrackSeek& seek, MiniElements& elements,
                 SkinnedWindow& window)
        : PositionGrip(core, seek, window), comfort_(core.state.comfort), elements_(elements) {}

private:
    void moveMark(double x) override;
    [[nodiscard]] double percentAt(double x) const override;

    [[nodiscard]] double filledBy(double x) const;

    const base::Comfort& comfort_;
    MiniElements& elements_;
};

} // namespace tovik::window
