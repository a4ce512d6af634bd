// SPDX-License-Identifier: GPL-3.0-or-later
// A list as a widget sees it: rows to show, and what a user does to them. Rows count from 0.
// Interface thread.
#pragma once

#include "ui/WindowInput.h"

#include <cstddef>
#include <string>

namespace tovik::ui {

/// Asked only for the rows that are visible, each time they are drawn.
class ListModel {
public:
    virtual ~ListModel() = default;
    ListModel(const ListModel&) = delete;
    ListModel& operator=(const ListModel&) = delete;

    [[nodiscard]] virtual std::size_t rows() const = 0;

    /// Bytes: valid UTF-8, or else Windows-1252.
    [[nodiscard]] virtual std::string text(std::size_t row) const = 0;

    [[nodiscard]] virtual bool selected(std::size_t row) const = 0;

    /// Stands out from the others, as the row that plays does.
    [[nodiscard]] virtual bool marked(std::size_t row) const = 0;

protected:
    ListModel() = default;
};

/// Every call is made through the program's dispatcher. The widget draws itself anew after each.
class ListInput {
public:
    virtual ~ListInput() = default;
    ListInput(const ListInput&) = delete;
    ListInput& operator=(const ListInput&) = delete;

    /// The user chose a row, by a press or by the cursor keys; the modifiers say how.
    virtual void selectRow(std::size_t row, Modifiers modifiers) = 0;

    /// A double click on a row, or Enter with the cursor on it.
    virtual void activateRow(std::size_t row) = 0;

protected:
    ListInput() = default;
};

} // namespace tovik::ui
