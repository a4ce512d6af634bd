// SPDX-License-Identifier: GPL-3.0-or-later
// The balance: nine lamps, words, and the pan of the channels. Interface thread.
#pragma once

#include "config/Errors.h"
#include "player/NowPlaying.h"
#include "player/PlayerState.h"
#include "sound/SoundLibrary.h"
#include "ui/MainElements.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace tovik::player {

class Balance {
public:
    /// All of them outlive the object.
    Balance(PlayerState& state, sound::SoundLibrary& sound, const config::Errors& errors,
            ui::MainElements& elements, NowPlaying& playing, NowPlayingView& view)
        : state_(state), sound_(sound), errors_(errors), elements_(elements), playing_(playing),
          view_(view) {}

    /// Shows a balance, -100 to 100, on the lamps and sets the pan of the active channel. A value
    /// between the steps gets the lamps of the leftmost one and its own pan.
    void ApplyBalance(std::int16_t pan);

    /// A click on lamp 0 to 8: its step becomes the balance of both channels.
    void Balbar_Click(std::int16_t index);

    /// Words for the balance that the settings brought.
    void showStartText();

    /// While the pointer is held over a lamp, the words of its step are shown.
    void hover(std::size_t index);

    /// The words of the balance come back.
    void endHover();

private:
    [[nodiscard]] std::string text(std::size_t step, std::size_t percentStep) const;
    void showLamps(std::size_t step);

    PlayerState& state_;
    sound::SoundLibrary& sound_;
    const config::Errors& errors_;
    ui::MainElements& elements_;
    NowPlaying& playing_;
    NowPlayingView& view_;
};

} // namespace tovik::player
