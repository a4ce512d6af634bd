// SPDX-License-Identifier: GPL-3.0-or-later
// How each dialog is made and shown, as a table. Interface thread.
#pragma once

#include "dialogs/Dialog.h"
#include "dialogs/DialogLogic.h"
#include "host/Dispatcher.h"
#include "window/WindowOpener.h"

#include <cstdint>
#include <span>

namespace tovik::dialogs {

/// What a dialog is made of; logic and dispatcher outlive it.
struct DialogParts {
    const DialogLogic& logic;
    const host::Dispatcher& dispatcher;
    QWidget* parent; ///< its object tree owns the dialog
};

enum class DialogKind : std::uint8_t {
    beside, ///< stays open beside the player, and is kept when it is closed
    first,  ///< holds up the other windows until it is closed, and is made anew each time
};

struct DialogRow {
    window::WindowId window;
    DialogKind kind;
    Dialog& (*make)(const DialogParts& parts);
};

[[nodiscard]] std::span<const DialogRow> dialogTable() noexcept;

} // namespace tovik::dialogs
