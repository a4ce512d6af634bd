// SPDX-License-Identifier: GPL-3.0-or-later
// Which command each button of the main window runs. Any thread.
#pragma once

#include "player/CommandTable.h"
#include "ui/MainElements.h"

#include <cstddef>
#include <span>

namespace tovik::player {

/// A button with two faces: the down face shows while it is pressed, and the release acts
/// wherever the pointer is then.
struct PressButton {
    ui::MainElement up;
    ui::MainElement down;
    CommandId command;
};

/// A button with one face: it acts when it is released with the pointer still on it.
struct ClickButton {
    ui::MainElement name;
    std::size_t index;
    CommandId command;
};

[[nodiscard]] std::span<const PressButton> pressButtons() noexcept;
[[nodiscard]] std::span<const ClickButton> clickButtons() noexcept;

} // namespace tovik::player
