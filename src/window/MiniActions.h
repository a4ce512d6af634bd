// SPDX-License-Identifier: GPL-3.0-or-later
// What the keyboard and screen readers meet on the mini window: each element is and does what its
// twin on the main window is and does. Interface thread.
#pragma once

#include "ui/AccessInput.h"
#include "ui/AccessList.h"
#include "window/MiniElements.h"

#include <vector>

namespace tovik::window {

class MiniActions final : public ui::AccessInput {
public:
    /// The twins' input outlives the object. An element without a twin tells and does nothing.
    explicit MiniActions(ui::AccessInput& main) : main_(main) {}

    [[nodiscard]] ui::ElementFacts factsOf(ui::ElementAddress element) const override;
    void activate(ui::ElementAddress element) override;
    void adjust(ui::ElementAddress element, ui::Adjustment adjustment) override;
    void setValue(ui::ElementAddress element, double value) override;

private:
    ui::AccessInput& main_;
};

/// The elements that a user meets, in the order of sight.
[[nodiscard]] std::vector<ui::AccessPlace> miniAccess();

} // namespace tovik::window
