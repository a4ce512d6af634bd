// SPDX-License-Identifier: GPL-3.0-or-later
// What the keyboard and screen readers do to single elements of a window, and what they ask about
// them. The widget calls, the window's logic answers. Interface thread.
#pragma once

#include "ui/ElementLayout.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tovik::ui {

/// How a key moves a slider or a bar.
enum class Adjustment : std::uint8_t { Up, Down, PageUp, PageDown, Least, Most };

/// The value of a slider or a bar in a unit that tells a user something: percent, decibels,
/// seconds.
struct ElementRange {
    double value = 0;
    double least = 0;
    double most = 0;
    double step = 1; ///< of `Up` and `Down`

    friend bool operator==(const ElementRange&, const ElementRange&) = default;
};

/// What an element tells beyond its record.
struct ElementFacts {
    bool enabled = true;  ///< it does something when it is used
    bool checked = false; ///< of what has two states
    std::string text;     ///< what it reads; bytes: valid UTF-8, or else Windows-1252
    std::optional<ElementRange> range{};

    friend bool operator==(const ElementFacts&, const ElementFacts&) = default;
};

/// Every call but `factsOf` is made through the program's dispatcher, so a handler may raise
/// errors.
class AccessInput {
public:
    virtual ~AccessInput() = default;
    AccessInput(const AccessInput&) = delete;
    AccessInput& operator=(const AccessInput&) = delete;

    /// Raises nothing.
    [[nodiscard]] virtual ElementFacts factsOf(ElementAddress element) const = 0;

    /// Does what a click on the element does.
    virtual void activate(ElementAddress element) = 0;

    virtual void adjust(ElementAddress element, Adjustment adjustment) = 0;

    /// Puts a slider or a bar to a value, held to its range.
    virtual void setValue(ElementAddress element, double value) = 0;

protected:
    AccessInput() = default;
};

} // namespace tovik::ui
