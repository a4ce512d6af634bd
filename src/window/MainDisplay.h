// SPDX-License-Identifier: GPL-3.0-or-later
// Maps what is known of the playing track onto the elements of the main window. Interface thread.
#pragma once

#include "player/NowPlaying.h"
#include "ui/ImgScroller.h"
#include "ui/MainElements.h"
#include "window/TextFields.h"

#include <functional>
#include <string>

namespace tovik::window {

class MainDisplay final : public player::NowPlayingView {
public:
    using SetCaption = std::function<void(const std::string&)>;

    /// `setCaption` takes the caption of the window; the others outlive the object.
    MainDisplay(ui::MainElements& elements, TextFields& fields, ui::ImgScroller& scroller,
                SetCaption setCaption);

    void showFacts(const player::NowPlaying& playing) override;
    void showFormat(const player::NowPlaying& playing) override;
    void showTitles(const player::NowPlaying& playing) override;
    void showCaptions(const player::NowPlaying& playing) override;
    void showTime(const player::NowPlaying& playing) override;
    void showPosition(const player::NowPlaying& playing) override;
    void showVolume(const player::NowPlaying& playing) override;
    void showBalance(const player::NowPlaying& playing) override;
    void showFields(bool visible) override;

    /// Says in the language's words, or no longer, that the player stops after this track.
    void showStopNote(bool stops);

private:
    void showDigit(std::size_t place, char digit);

    /// Whether the panel with the display is shown. Tracks start and the clock ticks on every
    /// panel, and nothing of the display may come up over the others.
    [[nodiscard]] bool onMainPanel() const;

    ui::MainElements& elements_;
    TextFields& fields_;
    ui::ImgScroller& scroller_;
    SetCaption setCaption_;
};

} // namespace tovik::window
