// SPDX-License-Identifier: GPL-3.0-or-later
// Maps what is known of the playing track onto the elements of the main window. Interface thread.
#pragma once

#include "player/NowPlaying.h"
#include "player/PlayerState.h"
#include "ui/ImgScroller.h"
#include "window/MainElements.h"
#include "window/TrackFields.h"

#include <functional>
#include <string>

namespace tovik::window {

class MainDisplay final : public player::NowPlayingView {
public:
    using SetCaption = std::function<void(const std::string&)>;

    /// `setCaption` takes the caption of the window; the others outlive the object.
    MainDisplay(const player::PlayerState& state, MainElements& elements, TextFields& fields,
                ui::ImgScroller& scroller, SetCaption setCaption);

    void showFacts(const player::NowPlaying& playing) override;
    void showFormat(const player::NowPlaying& playing) override;
    void showTitles(const player::NowPlaying& playing) override;

    void holdTitles() override { scroller_.hold(); }

    void showCaptions(const player::NowPlaying& playing) override;
    void showTime(const player::NowPlaying& playing) override;
    void showPosition(const player::NowPlaying& playing) override;
    void showVolume(const player::NowPlaying& playing) override;
    void showBalance(const player::NowPlaying& playing) override;
    void showStation(const player::NowPlaying& playing) override;
    void showRecording() override;
    void showSource() override;

    /// In the language's words.
    void showStopNote() override;
    void showNotice(const player::NowPlaying& playing) override;

private:
    const player::PlayerState& state_;
    MainElements& elements_;
    TextFields& fields_;
    TrackFields track_;
    ui::ImgScroller& scroller_;
    SetCaption setCaption_;
};

} // namespace tovik::window
