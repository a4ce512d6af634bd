// SPDX-License-Identifier: GPL-3.0-or-later
// The panels over the records of a window that nobody sees, with a picture in each store.
#pragma once

#include "config/ErrHandler.h"
#include "config/Errors.h"
#include "support/host/TestHost.h"
#include "window/Panels.h"

#include <cstdint>
#include <memory>

namespace tovik::window {

class FocusWindow final : public player::PlayerWindow {
public:
    int focused = 0;

    void takeFocus() override { ++focused; }
};

struct PanelsRig {
    PanelsRig() {
        for (std::size_t i = 0; i < elements.count(ui::MainElement::Image2); ++i) {
            elements.touch(ui::MainElement::Image2, i).picture = look(i);
        }
        Timer6->setInterval(Panels::kTimer6Ms);
        elements.touch(ui::MainElement::qpl_exp).picture = look(50);
        elements.touch(ui::MainElement::qpl_col).picture = look(51);
    }

    /// The picture of store number `i`.
    static ui::Picture look(std::size_t i) {
        return {.number = static_cast<std::uint32_t>(100 + i), .version = 1};
    }

    void showAll(bool visible) {
        for (const ui::ElementPlace<ui::MainElement>& place : ui::mainLayout()) {
            for (std::size_t i = 0; i < place.count; ++i) {
                elements.touch(place.name, place.first + i).visible = visible;
            }
        }
    }

    test::TestHost host;
    player::PlayerState state;
    ui::MainElements elements{ui::mainLayout()};
    FocusWindow window;
    config::ErrHandler log{host.paths, host.clock, host.operatingSystem};
    config::Errors errors{log, host.dialogs};
    std::unique_ptr<host::Timer> Timer6 = host.clock.makeTimer([this] { panels.Timer6(); });
    Panels panels{state, elements, window, errors, *Timer6};
};

} // namespace tovik::window
