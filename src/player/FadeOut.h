// SPDX-License-Identifier: GPL-3.0-or-later
// Slides what plays to silence and stops it then. Interface thread.
#pragma once

#include "player/Core.h"

#include <functional>
#include <memory>
#include <optional>

namespace tovik::player {

class FadeOut {
public:
    /// `stop` stops the track as the button does. `core` outlives the object.
    FadeOut(const Core& core, std::function<void()> stop);

    /// Slides the active channel to silence in as many seconds as a crossfade takes; with 0 s it
    /// stops at once. A track that ends meanwhile is not followed by another.
    void FadeOutTrack();

    /// What stops or starts calls it off.
    void callOff();

    /// The output pauses, and the slide with it: the stop waits, too.
    void hold();

    /// The output goes on; the stop comes when the slide has ended.
    void goOn();

    [[nodiscard]] bool runs() const { return timer_->enabled() || held_; }

    /// The tick of `FadeOut`.
    void FadeOut_Timer() { stop_(); }

private:
    const Core& core_;
    std::function<void()> stop_;
    std::unique_ptr<host::Timer> timer_;
    std::optional<int> held_; ///< milliseconds that were left when the output paused
};

} // namespace tovik::player
