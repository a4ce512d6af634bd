// SPDX-License-Identifier: GPL-3.0-or-later
// What a messenger is told of what plays, byte for byte. Pure; any thread.
#pragma once

#include "host/MessengerWindows.h"

#include <string>

namespace tovik::desktop {

/// The number of such records.
inline constexpr std::uint32_t kNowPlayingRecord = 1351;

/// Texts are UTF-8, or else Windows-1252.
struct MessengerStatus {
    std::string category = "Music";
    bool enabled = false; ///< false: the messenger shows nothing any more
    std::string format = "{0} - {1}";
    std::string value1{}; ///< stands for {0}
    std::string value2{}; ///< stands for {1}
    std::string value3{};
    std::string value4{};
};

/// The record: all of it parted by a backslash and a zero digit, in UTF-16, low byte first, with a
/// zero at the end.
[[nodiscard]] host::MessengerRecord messengerRecord(const MessengerStatus& status);

} // namespace tovik::desktop
