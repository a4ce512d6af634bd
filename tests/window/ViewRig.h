// SPDX-License-Identifier: GPL-3.0-or-later
// The player's parts with the bars and faces of the main window.
#pragma once

#include "player/PlayerRig.h"
#include "window/BalanceBar.h"
#include "window/EqualizerSliders.h"
#include "window/ModeFaces.h"
#include "window/PlayerWindow.h"
#include "window/PositionBar.h"
#include "window/VolumeBar.h"

namespace tovik::test {

/// Notes what the logic does with its window.
class NotedWindow final : public window::PlayerWindow {
public:
    int drags = 0;
    int focusTaken = 0;

    void beginDrag() override { ++drags; }

    void takeFocus() override { ++focusTaken; }
};

class ViewRig : public PlayerRig {
protected:
    ViewRig() {
        screen_.add(sliders_);
        screen_.add(volumeBar_);
        screen_.add(balanceBar_);
        screen_.add(modes_);
    }

    NotedWindow window_;
    window::MainElements elements_{window::mainLayout()};
    player::Equalizer equalizer_{core_, host_.dialogs};
    window::EqualizerSliders sliders_{state_, equalizer_, elements_, host_.dialogs};
    window::VolumeBar volumeBar_{core_, volume_, elements_};
    window::BalanceBar balanceBar_{core_, balance_, elements_};
    window::PositionBar positionBar_{core_, seek_, elements_, window_};
    window::ModeFaces modes_{state_, elements_};
};

} // namespace tovik::test
