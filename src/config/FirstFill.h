// SPDX-License-Identifier: GPL-3.0-or-later
// What a new data folder says that only this user's machine knows. Called once, at the
// start, by the interface thread.
#pragma once

#include "config/clsXML.h"
#include "host/Paths.h"

#include <array>
#include <string>
#include <string_view>

namespace tovik::config {

/// The user's folder for music: XDG_MUSIC_DIR of "user-dirs.dirs" in the configuration folder
/// (`configHome`, or ".config" in the home where that is empty or relative), else "Music" in the
/// home. The folder need not exist.
[[nodiscard]] std::string musicFolder(const std::string& home, const std::string& configHome);

/// The settings that are folders below which files land; shipped without a text.
inline constexpr std::array<std::string_view, 3> kFolderKeys{"ROP", "IROP", "CFLD"};

/// Gives one of them the folder, if the open document has it without a text.
void fillFolder(clsXML& xml, std::string_view key, const std::string& folder);

/// Completes a data folder whose first start is still ahead ("firstrun.ini" is there): those of
/// the keys ROP, IROP and CFLD that are empty get the music folder, and if there is no automatic
/// playlist yet, the bytes of `firstList` become it, unless they are none. Does nothing in any
/// other folder. May be repeated. Raises what writing raises.
void firstFill(const host::Paths& paths, const std::string& musicFolder,
               std::string_view firstList);

} // namespace tovik::config
