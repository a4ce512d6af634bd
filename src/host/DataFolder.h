// SPDX-License-Identifier: GPL-3.0-or-later
// Which folder holds the program's data, and how a new one gets its first content. Called once at
// the start, by the interface thread.
#pragma once

#include "host/Environment.h"

#include <optional>
#include <string>
#include <system_error>

namespace tovik::host {

/// The data folder: the one asked for on the command line; else the folder of the executable if
/// it holds a writable settings file (portable use); else "tovik" in the user's data home (XDG
/// Base Directory Specification). The folder need not exist yet.
[[nodiscard]] std::string chooseDataFolder(const Environment& environment,
                                           const std::optional<std::string>& asked);

/// What is wrong with the user's home, in words, if the program cannot do with it: a relative one
/// would put files wherever the program was started, and without any there may be no place for the
/// data folder.
[[nodiscard]] std::optional<std::string> homeProblem(const Environment& environment,
                                                     const std::optional<std::string>& asked);

/// The data shipped with the executable: beside it, in the share folder of an installation, or in
/// the source tree it was built in. Empty if there is none.
[[nodiscard]] std::string shippedDataFolder(const Environment& environment);

/// Fills a data folder that is missing or empty: copies what is shipped and leaves "firstrun.ini"
/// with the language of the locale. A fill that was broken off is taken up again. A data folder
/// with settings gets every shipped file of "Languages" and "skins" that it lacks; one that lost
/// them but still has "db" and "Languages" gets the shipped ones and begins as at the first start.
/// A folder with anything else in it is left alone. One process at a time may do it (`FolderLock`).
/// `shipped` may be empty: then only the folder for settings is made. Answers with the first
/// failure.
[[nodiscard]] std::error_code fillDataFolder(const std::string& dataFolder,
                                             const std::string& shipped, const std::string& locale);

/// Whether what changes can be kept there: tries to write a file beside the settings. Answers with
/// the failure.
[[nodiscard]] std::error_code tryDataFolder(const std::string& dataFolder);

/// Fills an empty folder so that it can stand in for a data folder that cannot be written: with
/// settings, words and looks of that one as far as they can be read, else with those shipped. What
/// was kept there is then as after a first start. Answers with the first failure.
[[nodiscard]] std::error_code fillStandIn(const std::string& standIn, const std::string& dataFolder,
                                          const std::string& shipped, const std::string& locale);

} // namespace tovik::host
