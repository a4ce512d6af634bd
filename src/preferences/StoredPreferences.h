// SPDX-License-Identifier: GPL-3.0-or-later
// Which key of the settings keeps which control of the preferences, as a table. Interface thread.
#pragma once

#include "config/Settings.h"
#include "player/SettingTable.h"
#include "preferences/PreferenceValues.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace tovik::preferences {

/// How the text of a key stands for a control.
enum class Form : std::uint8_t {
    left, ///< of the main window; no control
    top,
    flag, ///< ticked for 1 alone; written as 1 and 0
    copy, ///< the same, but only written
    number,
    chosenNumber, ///< one that goes with another control, and is not written, until it was set
    position,     ///< a number that a choice may have set already
    text,
    language,  ///< a text that is never empty
    twoDigits, ///< two ticks; the second is that of the next control
    scheme,    ///< 0: the tick, anything else: that of the next control
    places,    ///< of what is ticked in a list, "-1" for nothing
    rates,     ///< one for each format
};

struct StoredRow {
    player::SettingKey key;
    Form form{};
    Control control{};
};

/// In the order in which they are written.
[[nodiscard]] std::span<const StoredRow> storedTable() noexcept;

/// Where the main window stands, in twips.
struct WindowPlace {
    std::int32_t left = 0;
    std::int32_t top = 0;
};

/// Fills the controls. Raises 94 for a key that is missing and 13 or 6 for a text that does not
/// convert, with file, key and text; what was read until then counts.
void readPreferences(config::Settings& settings, PreferenceValues& values);

/// Writes every key whose control is known, in one go; the file has reached the disk on return.
/// Without a place, that is not written. Raises what writing raises.
void writePreferences(config::Settings& settings, const PreferenceValues& values,
                      const std::optional<WindowPlace>& place);

} // namespace tovik::preferences
