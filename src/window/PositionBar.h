// SPDX-License-Identifier: GPL-3.0-or-later
// The user's hand on the position bar of the main window and its mark. Interface thread.
#pragma once

#include "window/MainElements.h"
#include "window/PositionGrip.h"

namespace tovik::window {

class PositionBar final : public PositionGrip {
public:
    /// All of them outlive the bar.
    PositionBar(const player::Core& core, player::TrackSeek& seek, MainElements& elements,
                SkinnedWindow& window)
        : PositionGrip(core, seek, window), elements_(elements) {}

private:
    void moveMark(double x) override;
    /// The last pixel of the bar is all of the track.
    [[nodiscard]] double percentAt(double x) const override;

    MainElements& elements_;
};

} // namespace tovik::window
