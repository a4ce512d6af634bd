// SPDX-License-Identifier: GPL-3.0-or-later
// Settings that are read and written where they are used. Those that the table calls live are read
// each time anew: what another program or a hand wrote into the file counts at once. No other file
// reads or writes one by its key. Interface thread.
#pragma once

#include "config/Settings.h"
#include "player/SettingTable.h"

#include <string>
#include <string_view>

namespace tovik::player {

/// A key that the table of settings calls live, found while compiling: another does not compile.
struct LiveKey {
    SettingKey key;

    // NOLINTNEXTLINE(google-explicit-constructor): a key is written as its text
    consteval LiveKey(const char* text) : key(text) {
        const ReadAt read = kSettingTable.at(key.row).read;
        if (read != ReadAt::live && read != ReadAt::groupLive) {
            throw "the table of settings has it read at the start";
        }
    }
};

/// What `convert` makes of the text of a key; the file is read, and written back as after every
/// read. Raises 94 where the key is missing, and what `convert` raises.
template <typename Convert>
[[nodiscard]] auto readLive(config::Settings& settings, LiveKey key, const Convert& convert) {
    return settings.getAs(kSettingTable.at(key.key.row).key, convert);
}

/// The text itself.
[[nodiscard]] inline std::string readLive(config::Settings& settings, LiveKey key) {
    return settings.getSetting(kSettingTable.at(key.key.row).key);
}

/// What `convert` makes of the text of such a key of our own; `otherwise` where the file lacks it.
/// Raises what `convert` raises.
template <typename Convert, typename Value>
[[nodiscard]] Value readLiveOr(config::Settings& settings, LiveKey key, const Convert& convert,
                               Value otherwise) {
    const std::string_view name = kSettingTable.at(key.key.row).key;
    bool held = false;
    settings.readSettings(
        [&](const config::clsXML& xml) { held = config::Settings::holds(xml, name); });
    return held ? settings.getAs(name, convert) : otherwise;
}

/// A key that a step of the start reads by itself; another does not compile.
struct StepKey {
    SettingKey key;

    // NOLINTNEXTLINE(google-explicit-constructor): a key is written as its text
    consteval StepKey(const char* text) : key(text) {
        if (kSettingTable.at(key.row).read != ReadAt::step) {
            throw "the table of settings has no step read it";
        }
    }
};

/// What `convert` makes of the text of such a key; the same in all else.
template <typename Convert>
[[nodiscard]] auto readInStep(config::Settings& settings, StepKey key, const Convert& convert) {
    return settings.getAs(kSettingTable.at(key.key.row).key, convert);
}

/// Sets the text of a key whose value no member of the state keeps; it has reached the disk on
/// return. Raises what writing raises.
inline void storeText(config::Settings& settings, SettingKey key, std::string_view text) {
    settings.saveSetting(kSettingTable.at(key.row).key, text);
}

} // namespace tovik::player
