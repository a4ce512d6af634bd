// SPDX-License-Identifier: GPL-3.0-or-later
// A list as a widget sees it: rows to show, and what a user does to them. Rows count from 0.
// Interface thread.
#pragma once

#include "ui/WindowInput.h"

#include <cstddef>
#include <optional>
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

    /// What stands in front of the text, such as "12. "; bytes likewise.
    [[nodiscard]] virtual std::string numberText(std::size_t /*row*/) const { return {}; }

    /// What stands in the column of the times; bytes likewise.
    [[nodiscard]] virtual std::string timeText(std::size_t /*row*/) const { return {}; }

    /// The row that the cursor keys start from; one that is not there counts as none.
    [[nodiscard]] virtual std::optional<std::size_t> current() const = 0;

    [[nodiscard]] virtual bool selected(std::size_t row) const = 0;

    /// Stands out from the others, as the row that plays does.
    [[nodiscard]] virtual bool marked(std::size_t row) const = 0;

protected:
    ListModel() = default;
};

/// Every call is made through the program's dispatcher. The widget draws nothing anew by itself:
/// who answers tells it what changed.
class ListInput {
public:
    virtual ~ListInput() = default;
    ListInput(const ListInput&) = delete;
    ListInput& operator=(const ListInput&) = delete;

    /// The user chose a row, by a press or by the cursor keys. The modifiers say how; of the keys
    /// only Shift counts.
    virtual void selectRow(std::size_t row, Modifiers modifiers) = 0;

    /// A double click on a row.
    virtual void activateRow(std::size_t row) = 0;

    /// Enter with that row as the current one.
    virtual void enterRow(std::size_t row) { activateRow(row); }

    /// A button that asks about a row went down on it; a row that was not selected is by now.
    virtual void contextRow(std::size_t /*row*/) {}

    /// The same where no row is.
    virtual void contextNowhere() {}

    /// A key that asks was pressed with that row as the current one, which is in sight.
    virtual void contextByKey(std::size_t /*row*/) {}

    /// Which modifiers are down while the list has the keyboard.
    virtual void holdModifiers(Modifiers /*modifiers*/) {}

    /// Whether the user may take rows to other places.
    [[nodiscard]] virtual bool movesRows() const { return false; }

    /// A row is to stand in front of the row that is `before` now; the number of rows: at the end.
    virtual void moveRow(std::size_t /*row*/, std::size_t /*before*/) {}

    /// Delete. Whether the key was used; an unused one goes on to the window.
    virtual bool removeRows() { return false; }

protected:
    ListInput() = default;
};

} // namespace tovik::ui
