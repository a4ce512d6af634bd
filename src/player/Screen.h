// SPDX-License-Identifier: GPL-3.0-or-later
// What is shown: the one record of it, and any number of views that draw from it. Interface thread.
#pragma once

#include "player/NowPlaying.h"

#include <vector>

namespace tovik::player {

/// Who changes something tells it here; nobody paints from within.
class Screen {
public:
    Screen() = default;
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /// What is shown. A change is seen once it is told.
    NowPlaying playing;

    /// Views are not owned; they are told in the order in which they came. Not to be called while
    /// something is told.
    void add(NowPlayingView& view) { views_.push_back(&view); }

    void remove(NowPlayingView& view) { std::erase(views_, &view); }

    void showFacts() { tell(&NowPlayingView::showFacts, playing); }

    void showFormat() { tell(&NowPlayingView::showFormat, playing); }

    void showTitles() { tell(&NowPlayingView::showTitles, playing); }

    void holdTitles() { tell(&NowPlayingView::holdTitles); }

    void showCaptions() { tell(&NowPlayingView::showCaptions, playing); }

    void showTime() { tell(&NowPlayingView::showTime, playing); }

    void showPosition() { tell(&NowPlayingView::showPosition, playing); }

    void showVolume() { tell(&NowPlayingView::showVolume, playing); }

    void showBalance() { tell(&NowPlayingView::showBalance, playing); }

    void showVolumeLevel() { tell(&NowPlayingView::showVolumeLevel); }

    void showBalanceLevel(std::int16_t pan) { tell(&NowPlayingView::showBalanceLevel, pan); }

    void showStation() { tell(&NowPlayingView::showStation, playing); }

    void showRecording() { tell(&NowPlayingView::showRecording); }

    void showSource() { tell(&NowPlayingView::showSource); }

    void showMode(Mode mode) { tell(&NowPlayingView::showMode, mode); }

    void showStopNote() { tell(&NowPlayingView::showStopNote); }

    void showNotice() { tell(&NowPlayingView::showNotice, playing); }

    void showEqualizer() { tell(&NowPlayingView::showEqualizer); }

    void showSlider(std::size_t slider, std::int32_t value) {
        tell(&NowPlayingView::showSlider, slider, value);
    }

private:
    template <typename... Parameters, typename... Arguments>
    void tell(void (NowPlayingView::*what)(Parameters...), const Arguments&... arguments) {
        for (NowPlayingView* const view : views_) {
            (view->*what)(arguments...);
        }
    }

    std::vector<NowPlayingView*> views_;
};

} // namespace tovik::player
