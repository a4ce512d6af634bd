// SPDX-License-Identifier: GPL-3.0-or-later
// Which element of the settings keeps which member of the player's state. Any thread.
#pragma once

#include "player/PlayerState.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace tovik::player {

/// How the text of an element stands for a value.
enum class SettingKind : std::uint8_t {
    number,
    flag,       ///< on for 1 alone; written as 1 and 0
    panelFlag,  ///< on for 1 alone; written as 1 and 2
    firstDigit, ///< the number of the first character; never written as a whole
    text,
    gain,  ///< of a slider of the equalizer
    curve, ///< ten of them, in the attribute of an element without a text
};

/// When the value is read.
enum class ReadAt : std::uint8_t {
    group,     ///< in the one pass of the start
    groupStep, ///< there, and once more by a step of its own
    groupLive, ///< there, and anew at each use
    step,      ///< by a step of its own
    live,      ///< at each use, by `readLive`: a change of the file counts at once
};

/// Whether the pass of the start reads it.
constexpr bool inGroup(ReadAt read) {
    return read == ReadAt::group || read == ReadAt::groupStep || read == ReadAt::groupLive;
}

/// When the value is written, beside being stored on demand.
enum class SavedAt : std::uint8_t {
    demand,
    end,  ///< of the program
    rest, ///< at the end, and when a value that changes in a drag or a turn has rested
};

/// Whose key it is.
enum class KeyOf : std::uint8_t {
    format, ///< the settings file must hold it: absent it is an error, and it is never made
    player, ///< our own: absent it leaves the value as it is, and storing it makes it
};

/// In the place of a member: the value is not kept, or by the part that reads it.
struct NoMember {};

using SettingMember =
    std::variant<NoMember, std::int16_t PlayerState::*, std::int32_t PlayerState::*,
                 bool PlayerState::*, std::string PlayerState::*>;

struct SettingRow {
    std::string_view key;
    SettingKind kind;
    SettingMember member;
    ReadAt read = ReadAt::group;
    SavedAt saved = SavedAt::demand;
    KeyOf owner = KeyOf::format;
};

/// The rows of the group come first, in the order in which they are read.
inline constexpr std::array kSettingTable{
    SettingRow{"MI", SettingKind::number, &PlayerState::MultipleInstances, ReadAt::groupLive},
    SettingRow{"AP", SettingKind::flag, &PlayerState::ShowSplash},
    SettingRow{"SHI", SettingKind::firstDigit, &PlayerState::ShowInTaskbar, ReadAt::groupLive},
    SettingRow{"CVL", SettingKind::number, &PlayerState::CurrentVolume, ReadAt::groupStep,
               SavedAt::rest},
    SettingRow{"CFD", SettingKind::flag, &PlayerState::CrossfadeOn, ReadAt::group, SavedAt::end},
    SettingRow{"SLD", SettingKind::flag, &PlayerState::SilenceSkipOn, ReadAt::group, SavedAt::end},
    SettingRow{"SHF", SettingKind::flag, &PlayerState::ShuffleOn, ReadAt::group, SavedAt::end},
    SettingRow{"EQ", SettingKind::flag, &PlayerState::EqualizerOn, ReadAt::group, SavedAt::end},
    SettingRow{"BLV", SettingKind::number, &PlayerState::BalanceValue, ReadAt::group, SavedAt::end},
    SettingRow{"RPT", SettingKind::flag, &PlayerState::RepeatOn, ReadAt::group, SavedAt::end},
    SettingRow{"CVP", SettingKind::number, &PlayerState::CurrentVisPlugin, ReadAt::group,
               SavedAt::end},
    SettingRow{"CLNG", SettingKind::text, &PlayerState::LanguageFile, ReadAt::groupLive},
    SettingRow{"ASOT", SettingKind::number, &PlayerState::AlwaysOnTop, ReadAt::groupLive},
    SettingRow{"AFS", SettingKind::number, &PlayerState::AssociateAtStart},
    SettingRow{"CHKU", SettingKind::number, &PlayerState::CheckUpdates},
    SettingRow{"TMD", SettingKind::number, &PlayerState::TimeDisplayMode, ReadAt::step,
               SavedAt::end},
    SettingRow{"QPL", SettingKind::panelFlag, &PlayerState::QuickListOpen, ReadAt::step,
               SavedAt::end},
    SettingRow{"MSN", SettingKind::flag, &PlayerState::MessengerOn, ReadAt::step},
    SettingRow{"X", SettingKind::number, &PlayerState::WindowLeft, ReadAt::step, SavedAt::rest},
    SettingRow{"Y", SettingKind::number, &PlayerState::WindowTop, ReadAt::step, SavedAt::rest},
    SettingRow{"CEQ", SettingKind::curve, NoMember{}, ReadAt::step, SavedAt::rest},
    SettingRow{"CDB", SettingKind::gain, NoMember{}, ReadAt::step, SavedAt::rest},
    SettingRow{"CFDT", SettingKind::number, NoMember{}, ReadAt::live},
    SettingRow{"EV2", SettingKind::number, &PlayerState::GlobalVolumeMode, ReadAt::live},
    SettingRow{"OSD", SettingKind::flag, NoMember{}, ReadAt::live},
    SettingRow{"SLDT", SettingKind::number, NoMember{}, ReadAt::live},
    SettingRow{"SFA", SettingKind::text, NoMember{}, ReadAt::live},
    SettingRow{"SHWND", SettingKind::number, NoMember{}, ReadAt::live},
    SettingRow{"EM", SettingKind::flag, NoMember{}, ReadAt::live},
    SettingRow{"MC", SettingKind::flag, NoMember{}, ReadAt::live},
    SettingRow{"CFLD", SettingKind::text, NoMember{}, ReadAt::live},
    SettingRow{"STI", SettingKind::number, NoMember{}, ReadAt::live},
    SettingRow{"VPS", SettingKind::number, NoMember{}, ReadAt::live},
    SettingRow{"DOF", SettingKind::text, NoMember{}, ReadAt::live},
    SettingRow{"DOB", SettingKind::text, NoMember{}, ReadAt::live},
    SettingRow{"DBR", SettingKind::number, NoMember{}, ReadAt::live},
    SettingRow{"EPRIO", SettingKind::number, NoMember{}, ReadAt::live},
    SettingRow{"ROP", SettingKind::text, NoMember{}, ReadAt::live},
    SettingRow{"IROP", SettingKind::text, NoMember{}, ReadAt::live},
    SettingRow{"SCD", SettingKind::flag, NoMember{}, ReadAt::live},
    SettingRow{"ASO", SettingKind::flag, NoMember{}, ReadAt::live},
    SettingRow{"RSM", SettingKind::text, &PlayerState::ResumePlace, ReadAt::step, SavedAt::demand,
               KeyOf::player},
    SettingRow{"WPL", SettingKind::text, &PlayerState::WindowPlaces, ReadAt::step, SavedAt::rest,
               KeyOf::player},
    SettingRow{"CDSEARCH", SettingKind::flag, NoMember{}, ReadAt::live, SavedAt::demand,
               KeyOf::player},
    SettingRow{"CFDN", SettingKind::number, NoMember{}, ReadAt::live, SavedAt::demand,
               KeyOf::player},
    SettingRow{"OSK", SettingKind::flag, NoMember{}, ReadAt::live, SavedAt::demand, KeyOf::player},
};

/// The place of a key in the table, found while compiling: a key without a row does not compile.
struct SettingKey {
    std::size_t row = 0;

    // NOLINTNEXTLINE(google-explicit-constructor): a key is written as its text
    consteval SettingKey(const char* key) {
        while (kSettingTable.at(row).key != key) {
            ++row;
        }
    }
};

} // namespace tovik::player
