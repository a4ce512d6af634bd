// SPDX-License-Identifier: GPL-3.0-or-later
// The panels over the records of a window that nobody sees, with a picture in each store.
#pragma once

#include "config/clsXML.h"
#include "config/ErrHandler.h"
#include "config/Errors.h"
#include "support/host/ComfortOfTests.h"
#include "support/host/TestHost.h"
#include "support/sound/FakeSoundLibrary.h"
#include "window/Panels.h"

#include <cstdint>
#include <memory>

namespace tovik::window {

class FocusWindow final : public PlayerWindow {
public:
    int focused = 0;

    void takeFocus() override { ++focused; }
};

struct PanelsRig {
    PanelsRig() {
        state.comfort = test::comfortOfTests();
        for (std::size_t i = 0; i < elements.count(MainElement::Image2); ++i) {
            elements.touch(MainElement::Image2, i).picture = look(i);
        }
        elements.touch(MainElement::qpl_exp).picture = look(50);
        elements.touch(MainElement::qpl_col).picture = look(51);
    }

    /// The picture of store number `i`.
    static ui::Picture look(std::size_t i) {
        return {.number = static_cast<std::uint32_t>(100 + i), .version = 1};
    }

    void showAll(bool visible) {
        for (const ui::ElementPlace<MainElement>& place : mainLayout()) {
            for (std::size_t i = 0; i < place.count; ++i) {
                elements.touch(place.name, place.first + i).visible = visible;
            }
        }
    }

    test::TestHost host;
    player::PlayerState state;
    MainElements elements{mainLayout()};
    FocusWindow window;
    config::ErrHandler log{host.paths, host.clock, host.operatingSystem};
    config::Errors errors{log, host.dialogs};
    test::FakeSoundLibrary sound;
    config::clsXML xml;
    config::Settings settings{host.paths, xml};
    playlist::stdSS list;
    playlist::ListMirror mirror{list};
    player::Screen screen;
    player::TrackNews news;
    player::Core core{.state = state,
                      .sound = sound,
                      .settings = settings,
                      .errors = errors,
                      .lists = {.stdSS = list, .List1 = mirror},
                      .timers = host.clock,
                      .screen = screen,
                      .news = news};
    Panels panels{core, elements, window};
};

} // namespace tovik::window
