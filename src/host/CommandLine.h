// SPDX-License-Identifier: GPL-3.0-or-later
// The words that the program was started with. Pure: looks at no file and no variable. Any thread.
#pragma once

#include "host/PlayerArguments.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tovik::host {

/// Devices that are no device of the system.
inline constexpr std::string_view kSilentDevice = "silent"; ///< plays on time, but nowhere
inline constexpr std::string_view kListDevices = "list";    ///< prints the names and ends

/// What the command line asks for. Paths are absolute.
struct CommandLine {
    bool help = false;
    bool version = false;
    bool forgetTypes = false;
    std::optional<std::string> session; ///< by which the desktop's session knows the program
    std::optional<std::string> dataFolder;
    std::optional<std::string> device;
    std::optional<bool> comfort; ///< for this run
    std::optional<std::string> renderFile;
    std::optional<double> renderSeconds; ///< above 0
    std::optional<std::string> screenshotFile;
    std::vector<std::string> discImages; ///< each is one more drive, with its disc in it
    PlayerArguments player;              ///< every word that is no option
};

/// A command line that cannot be followed; the program ends with `kUsageStatus`.
struct UsageError {
    std::string text; ///< one line for the standard error stream
};

inline constexpr int kUsageStatus = 2;

/// Reads the words behind the program's name. Options begin with "--", their value is the next
/// word or stands behind "="; a bare "--" ends them. Of an option given twice the last counts, but
/// for "--cd". A session manager puts "-session" with the name of the
/// program in its session.
[[nodiscard]] std::variant<CommandLine, UsageError>
parseCommandLine(std::span<const std::string> words, std::string_view workingFolder);

/// What `--help` prints.
[[nodiscard]] std::string helpText();

} // namespace tovik::host
