// SPDX-License-Identifier: GPL-3.0-or-later
// Which command each button of the main window runs. Tables: any thread.
#pragma once

#include "commands/Commands.h"
#include "window/MainElements.h"

#include <cstddef>
#include <span>

namespace tovik::window {

/// A button with two faces: the down face shows while it is pressed, and the release acts
/// wherever the pointer is then.
struct PressButton {
    MainElement up;
    MainElement down;
    commands::CommandId command;
};

/// A button with one picture: it acts when it is released with the pointer still on it.
struct ClickButton {
    MainElement name;
    std::size_t index;
    commands::CommandId command; ///< none: there is nothing yet that it could do
};

[[nodiscard]] std::span<const PressButton> pressButtons() noexcept;
[[nodiscard]] std::span<const ClickButton> clickButtons() noexcept;

/// Buttons and tabs whose command has a target are enabled, the others disabled. Interface thread.
void enableButtons(MainElements& elements, const commands::Commands& commands);

} // namespace tovik::window
