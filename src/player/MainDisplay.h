// SPDX-License-Identifier: GPL-3.0-or-later
// Maps what is known of the playing track onto the elements of the main window. Interface thread.
#pragma once

#include "player/NowPlaying.h"
#include "ui/MainElements.h"

#include <functional>
#include <string>

namespace tovik::player {

class MainDisplay final : public NowPlayingView {
public:
    using SetCaption = std::function<void(const std::string&)>;

    /// `setCaption` takes the caption of the window.
    MainDisplay(ui::MainElements& elements, SetCaption setCaption);

    void showFacts(const NowPlaying& playing) override;
    void showTitles(const NowPlaying& playing) override;
    void showTime(const NowPlaying& playing) override;
    void showPosition(const NowPlaying& playing) override;
    void showVolume(const NowPlaying& playing) override;
    void showBalance(const NowPlaying& playing) override;
    void showFields(bool visible) override;

private:
    void showDigit(std::size_t place, char digit);
    ui::MainElements& elements_;
    SetCaption setCaption_;
};

} // namespace tovik::player
