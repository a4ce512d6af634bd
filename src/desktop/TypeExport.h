// SPDX-License-Identifier: GPL-3.0-or-later
// The file types of the player where desktops look for them: an entry among the user's
// applications, and the user's defaults. Reads and writes files, so not for the interface thread.
#pragma once

#include "host/Environment.h"
#include "host/Programs.h"

#include <span>
#include <string>
#include <system_error>

namespace tovik::desktop {

/// Where the user's desktop keeps these (XDG Base Directory Specification).
struct TypePlaces {
    std::string store;        ///< the program's own keys, "classes.ini" in its data folder
    std::string applications; ///< the folder of entries
    std::string defaults;     ///< "mimeapps.list"

    [[nodiscard]] static TypePlaces of(const host::Environment& environment,
                                       const std::string& dataFolder);
};

/// Claims these extensions beside those claimed before: keeps the keys, writes the entry, and makes
/// the program the default of the types of `extensions`. An entry that somebody else wrote stays as
/// it is. Answers with the first failure; what was written by then stays.
[[nodiscard]] std::error_code claimTypes(const TypePlaces& places,
                                         std::span<const std::string> extensions,
                                         const std::string& programPath,
                                         const std::string& iconSpec);

/// Takes all of it back: the program is nobody's default, its entry and keys are gone, and types
/// that the user had taken from it are so again. An entry that somebody else wrote stays. Answers
/// with the first failure.
[[nodiscard]] std::error_code forgetTypes(const TypePlaces& places);

/// Lets the desktop's own helper look at the entries anew, if there is one; does not wait for it.
void tellOfEntries(host::Programs& programs, const TypePlaces& places);

/// The same behind `forgetTypes`, where the helper has looked before.
void tellOfForgotten(host::Programs& programs, const TypePlaces& places);

} // namespace tovik::desktop
