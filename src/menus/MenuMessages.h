// SPDX-License-Identifier: GPL-3.0-or-later
// What the messages about menus carry: the address of one of these records in `lParam`. Interface
// thread.
#pragma once

#include "ui/cMemDC.h"
#include "ui/MessageWindow.h"

#include <bit>

namespace tovik::menus {

/// `ui::messages::kMeasureItem`: how much room an item needs.
struct MeasureItem {
    int id = 0;
    double scale = 1;
    const ui::TextEngine* engine = nullptr;
    int width = 0;  ///< the answer, in pixels
    int height = 0; ///< likewise
};

/// `ui::messages::kDrawItem`: an item is to be drawn. Id 0 is the face alone.
struct DrawItem {
    int id = 0;
    double scale = 1;
    ui::cMemDC* surface = nullptr;
    ui::PixelBox box{}; ///< on the surface
    int menuTop = 0;    ///< how far down in the menu the box begins, in pixels
    int menuHeight = 0; ///< of the whole menu
    bool selected = false;
};

template <typename Record>
[[nodiscard]] std::intptr_t messageParameter(Record& record) {
    return std::bit_cast<std::intptr_t>(&record);
}

/// The record of a message; none for 0.
template <typename Record>
[[nodiscard]] Record* messageRecord(const ui::WindowMessage& message) {
    return std::bit_cast<Record*>(message.lParam);
}

} // namespace tovik::menus
