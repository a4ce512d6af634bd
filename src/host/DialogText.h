// SPDX-License-Identifier: GPL-3.0-or-later
// What file dialogs are asked and answer, as single texts. Pure; any thread.
#pragma once

#include "host/Dialogs.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::host {

/// Takes "label|*.a;*.b|label|*.c" apart: one filter for each label, with the patterns behind it.
/// A label with no pattern behind it is left out.
[[nodiscard]] std::vector<FileFilter> filtersOf(std::string_view text);

/// What a dialog gave, in one text whose parts end with zeros: a single path, or the folder of all
/// and their names in it; one more zero ends it. Paths are absolute. Empty for no path.
[[nodiscard]] std::string chosenText(std::span<const std::string> paths);

} // namespace tovik::host
