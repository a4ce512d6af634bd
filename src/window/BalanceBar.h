// SPDX-License-Identifier: GPL-3.0-or-later
// The balance as the user sees and sets it: nine lamps, and words. Interface thread.
#pragma once

#include "player/Balance.h"
#include "player/Core.h"
#include "window/MainElements.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace tovik::window {

class BalanceBar final : public player::NowPlayingView {
public:
    /// All of them outlive the object.
    BalanceBar(const player::Core& core, player::Balance& balance, MainElements& elements)
        : core_(core), balance_(balance), elements_(elements) {}

    /// A click on lamp 0 to 8: its step becomes the balance.
    void click(std::size_t lamp);

    /// Shows a balance, -100 to 100, on the lamps. A value between the steps gets the lamps of the
    /// leftmost one.
    void showBalanceLevel(std::int16_t pan) override;

    /// Words for the balance that the settings brought.
    void showStartText();

    /// The words anew, in the language of now.
    void showText();

    /// While the pointer is held over a lamp, the words of its step are shown.
    void hover(std::size_t lamp);

    /// The words of the balance come back.
    void endHover();

private:
    [[nodiscard]] std::string text(std::size_t step, std::size_t percentStep) const;

    const player::Core& core_;
    player::Balance& balance_;
    MainElements& elements_;
    std::size_t percentStep_ = 0; ///< whose percentage the words tell
};

} // namespace tovik::window
