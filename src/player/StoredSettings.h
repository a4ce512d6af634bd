// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps the player's state in the settings, as the table of settings tells. Interface thread.
#pragma once

#include "config/Settings.h"
#include "host/TimerFactory.h"
#include "player/SettingTable.h"

#include <array>
#include <bitset>
#include <functional>
#include <memory>
#include <string_view>

namespace tovik::player {

/// What was not read is never written: a start that ended early must not put the values that it
/// began with in the place of the stored ones.
class StoredSettings {
public:
    /// How long a value must stay before it counts as resting.
    static constexpr int kRestMs = 250;

    /// All of them outlive the object. From now on it is told what `settings.changed` tells.
    StoredSettings(config::Settings& settings, PlayerState& state, host::TimerFactory& timers);
    ~StoredSettings();
    StoredSettings(const StoredSettings&) = delete;
    StoredSettings& operator=(const StoredSettings&) = delete;

    /// Reads the group of the start in one pass. Raises 94 for a missing key, 13 and 6 for a text
    /// that does not convert, with file, key and text; what was read until then counts.
    void getSettings();

    /// Reads one value anew; raises the same.
    void read(SettingKey key);

    /// Writes one value at once, read or not; it has reached the disk on return. Raises what
    /// writing raises.
    void save(SettingKey key);

    /// Writes one value at once, read or not, but waits for no disk and raises nothing: what fails
    /// is told as that of a read.
    void saveBehind(SettingKey key);

    /// Writes, in one pass, whatever is to be kept at the end and was read. Raises what writing
    /// raises.
    void saveAtEnd();

    /// Writes a value into the open document.
    using Keeper = std::function<void(config::clsXML&)>;

    /// From now on the value of a row without a member, which was read, is written by its keeper
    /// when it has rested. What is kept at the end the keeper writes by itself.
    void keptBy(SettingKey key, Keeper write);

private:
    void readRow(const config::clsXML& xml, std::size_t row);
    void write(config::clsXML& xml, std::size_t row) const;
    void noteChange(std::string_view key);
    void writeRested();

    config::Settings& settings_;
    PlayerState& state_;
    std::unique_ptr<host::Timer> rest_;
    std::array<Keeper, kSettingTable.size()> keepers_; ///< of rows without a member
    std::bitset<kSettingTable.size()> known_;          ///< rows that were read or stored
    std::bitset<kSettingTable.size()> changing_;       ///< rows to be written when they rest
};

} // namespace tovik::player
