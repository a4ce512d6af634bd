// SPDX-License-Identifier: GPL-3.0-or-later
// The mouse on the bars of the main window: position, volume, the lamps of the balance. Interface
// thread.
#pragma once

#include "ui/WindowInput.h"
#include "window/Grips.h"
#include "window/MainElements.h"

#include <cstdint>
#include <optional>

namespace tovik::window {

/// Each call is about the left button; what is over no bar does nothing.
class MainBars {
public:
    /// All of them outlive the object.
    MainBars(const MainElements& elements, const Grips& grips)
        : elements_(elements), position_(grips.position), volume_(grips.volume),
          balance_(grips.balance) {}

    void mouseDown(const ui::PointerEvent& event);
    void mouseMove(const ui::PointerEvent& event);
    void mouseUp(const ui::PointerEvent& event);

private:
    enum class Bar : std::uint8_t { none, position, volume, balance };

    [[nodiscard]] static Bar barUnder(const ui::PointerEvent& event);
    [[nodiscard]] double alongPosition(const ui::PointerEvent& event) const;
    [[nodiscard]] double alongVolume(const ui::PointerEvent& event) const;
    /// A press that began on a lamp may end on another one, or beside them.
    [[nodiscard]] std::optional<std::size_t> lampUnder(const ui::PointerEvent& event) const;

    const MainElements& elements_;
    PositionBar& position_;
    VolumeBar& volume_;
    BalanceBar& balance_;
};

} // namespace tovik::window
