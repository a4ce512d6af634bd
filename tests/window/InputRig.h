// SPDX-License-Identifier: GPL-3.0-or-later
// The mouse and the keys of the main window over the player's parts.
#pragma once

#include "commands/ClsShortcut.h"
#include "commands/Commands.h"
#include "window/MainInput.h"
#include "window/NotedMenuPopper.h"
#include "window/ViewRig.h"

namespace tovik::test {

/// Each command is bound and only written down.
class InputRig : public ViewRig {
protected:
    InputRig() {
        for (const commands::Command& command : commands::commandTable()) {
            commands_.bind(command.id, [this, id = command.id] { ran_.push_back(id); });
        }
    }

    /// The pointer at a place from the window's corner, with the element that it is about.
    static ui::PointerEvent event(window::MainElement element, std::size_t index, double x,
                                  double y, ui::MouseButton button = ui::MouseButton::Left) {
        ui::PointerEvent event;
        event.element = ui::addressOf(element, index);
        event.windowX = x;
        event.windowY = y;
        event.button = button;
        event.leftHeld = button == ui::MouseButton::Left;
        return event;
    }

    /// The pointer on the middle of an element.
    [[nodiscard]] ui::PointerEvent at(window::MainElement element, std::size_t index = 0,
                                      ui::MouseButton button = ui::MouseButton::Left) const {
        const ui::Box box = elements_.get(element, index).box();
        return event(element, index, box.left + box.width / 2, box.top + box.height / 2, button);
    }

    static ui::PointerEvent dragged(ui::PointerEvent event) {
        event.button = ui::MouseButton::None;
        event.leftHeld = true;
        return event;
    }

    void click(window::MainElement element, std::size_t index = 0) {
        input_.mouseDown(at(element, index));
        input_.mouseUp(at(element, index));
    }

    std::vector<commands::CommandId> ran_;
    NotedMenuPopper menus_;
    commands::Commands commands_;
    commands::ClsShortcut shortcuts_{commands_};
    window::Grips grips_{.position = positionBar_,
                         .volume = volumeBar_,
                         .balance = balanceBar_,
                         .sliders = sliders_};
    window::Panels panels_{core_, elements_, window_};
    window::MainInput input_{{.core = core_,
                              .elements = elements_,
                              .keys = shortcuts_,
                              .grips = grips_,
                              .panels = panels_,
                              .window = window_,
                              .menus = &menus_}};
};

} // namespace tovik::test
