// SPDX-License-Identifier: GPL-3.0-or-later
// The keys of file types as an entry of the desktop's applications. The format is that of the
// Desktop Entry Specification 1.4. Pure; any thread.
#pragma once

#include "desktop/KeyStore.h"

#include <string>
#include <string_view>
#include <vector>

namespace tovik::desktop {

/// The name by which desktops know the program.
inline constexpr std::string_view kDesktopId = "tovik.desktop";

/// Tells an entry that the program wrote from one that somebody else did.
inline constexpr std::string_view kOwnEntryMark = "X-Tovik-FileTypes=true";

/// The extensions, without the dot, whose files belong to the player.
[[nodiscard]] std::vector<std::string> claimedExtensions(const KeyStore& store);

/// The media types of these, each once, in the order of the extensions.
[[nodiscard]] std::vector<std::string> claimedTypes(const KeyStore& store);

/// The entry: how the files are opened, which types they are of, and the verbs as its actions. An
/// action is that of the first extension that has it.
[[nodiscard]] std::string desktopEntry(const KeyStore& store);

/// The command of a key (a quoted program, then words, "%1" for the file) as an entry has it.
[[nodiscard]] std::string execOf(std::string_view command);

} // namespace tovik::desktop
