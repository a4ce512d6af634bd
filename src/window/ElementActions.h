// SPDX-License-Identifier: GPL-3.0-or-later
// What the keyboard and screen readers do to the elements of the main window, and what these tell.
// Interface thread.
#pragma once

#include "commands/Commands.h"
#include "player/Core.h"
#include "player/Knobs.h"
#include "ui/AccessInput.h"
#include "window/Grips.h"
#include "window/MainElements.h"

#include <cstdint>

namespace tovik::window {

class ElementActions final : public ui::AccessInput {
public:
    /// What it works with; all of it outlives it.
    struct Parts {
        const player::Core& core;
        const MainElements& elements;
        const commands::Commands& commands;
        Grips grips;
        player::Knobs knobs;
    };

    explicit ElementActions(const Parts& parts) : p_(parts) {}

    [[nodiscard]] ui::ElementFacts factsOf(ui::ElementAddress element) const override;
    void activate(ui::ElementAddress element) override;

    /// An arrow moves the volume by 1 percent, a slider by 1 dB, the balance by a lamp and the
    /// position by 5 seconds; a page by 10 percent, 5 dB, 2 lamps and 30 seconds.
    void adjust(ui::ElementAddress element, ui::Adjustment adjustment) override;

    void setValue(ui::ElementAddress element, double value) override;

private:
    [[nodiscard]] std::optional<ui::ElementRange> rangeOf(ui::ElementAddress element) const;
    [[nodiscard]] std::string textOf(ui::ElementAddress element) const;

    Parts p_;
};

} // namespace tovik::window
