// SPDX-License-Identifier: GPL-3.0-or-later
// The version of the program, as its settings tell it. Interface thread.
#pragma once

#include "config/Settings.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::config {

/// The version text: the first character of the first field of TKXV, ".", TKV2. Raises 9 where
/// TKXV has no field.
[[nodiscard]] std::string versionText(std::string_view tkxv, std::string_view tkv2);

/// The build number: the second field of TKXV. Raises 9 where there is none, 13 and 6.
[[nodiscard]] std::int16_t buildNumber(std::string_view tkxv);

/// All fields of TKXV and TKV2 behind them, joined by ".".
[[nodiscard]] std::string fullVersionText(std::string_view tkxv, std::string_view tkv2);

/// What a server is told, such as "Tovik 0 Build 1": the first two fields of TKXV. Empty for one
/// that begins with "B". Raises 9 where there is no second field.
[[nodiscard]] std::string clientVersionText(std::string_view tkxv);

/// Gives a settings file the version that another one, that of the program, tells: TKXV, TKV2 and
/// TKD. A key that the program's does not tell, or a file that cannot be read, changes nothing; the
/// file is written only where a value differs. Raises what writing raises.
void takeVersion(const std::string& settingsPath, const std::string& programsPath);

/// The versions that the program shows and hands on. Each call reads the settings file and raises
/// what that raises.
class Version {
public:
    explicit Version(Settings& settings);

    /// For example "0.1".
    [[nodiscard]] std::string getTovikversion();

    [[nodiscard]] std::int16_t getTovikbuildNm();

    /// The date of the build, as its maker wrote it.
    [[nodiscard]] std::string buildDate();

    /// The caption of a window while nothing plays, for example "Tovik 0.1".
    [[nodiscard]] std::string get_Tovik_Version();

    /// See `clientVersionText`.
    [[nodiscard]] std::string clientVersion();

    /// The argument for the update program: "chk4update=" and the full version.
    [[nodiscard]] std::string updateArgument();

private:
    Settings& settings_;
};

} // namespace tovik::config
