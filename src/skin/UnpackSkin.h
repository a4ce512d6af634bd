// SPDX-License-Identifier: GPL-3.0-or-later
// Brings the skin package into the folder that the player reads its pictures from. Called once at
// the start, before the first picture is loaded. Interface thread.
#pragma once

#include "host/Dialogs.h"
#include "host/Paths.h"

#include <string>
#include <vector>

namespace tovik::skin {

/// Expands the package into the skin's folder, unless a file stands in that folder already. Any
/// failure on the way brings one box, whose text is "error!", and leaves what was unpacked till
/// then. Raises only when the folder itself cannot be made or read.
void UnpackSkin(const host::Paths& paths, host::Dialogs& dialogs);

/// A folder that was filled from an older package lacks files that came since: where none of
/// `names` stands in it, they are put there from the first of `packages`, which are paths, that
/// has one of them. Raises nothing: who reads a file that is still missing tells of it.
void completeSkin(const host::Paths& paths, const std::vector<std::string>& names,
                  const std::vector<std::string>& packages);

/// The kinder way: whatever of `names` the skin's folder lacks is put there from the package, and
/// all of the package into a folder without a file; where an unpacking failed before, what it left
/// and is no picture counts as lacking. What stands there stays. False where the package had to be
/// read and is none, or not a whole one. Raises only what `UnpackSkin` raises.
[[nodiscard]] bool mendSkin(const host::Paths& paths, const std::vector<std::string>& names);

/// Whether the skin's folder counts as filled. One file is enough, whatever it is: a folder with a
/// stray file in it is not filled, and one that was filled in part is not completed before a newer
/// program does (`renewSkin`). Raises what reading the folder raises.
[[nodiscard]] bool countsAsUnpacked(const std::string& folder);

} // namespace tovik::skin
