// SPDX-License-Identifier: GPL-3.0-or-later
// Which plug-ins there are, and what they call themselves. The one thread of the process.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace tovik::visual {

/// The files of a folder that may be plug-ins, as absolute paths: those that end in ".svp", then
/// those in ".uvs", in any case, each by name.
[[nodiscard]] std::vector<std::string> pluginFiles(const std::string& folder);

/// Tells the player the plug-ins of these folders, one after the other, each with its name: that of
/// the file of known names, or else what the plug-in says in a process of its own. One that cannot
/// be loaded has none. What is known now is kept in the file; a name that could not be found out
/// this time, because it took too long, is empty and asked for again the next time.
void list(pid_t player, const std::string& knownNames, std::span<const std::string_view> folders);

} // namespace tovik::visual
