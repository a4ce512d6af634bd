// SPDX-License-Identifier: GPL-3.0-or-later
// Settings that are read where they are used, each time anew: what another program or a hand wrote
// into the file counts at once. Interface thread.
#pragma once

#include "config/Settings.h"
#include "player/SettingTable.h"

#include <string>

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

} // namespace tovik::player
