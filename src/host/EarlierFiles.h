// SPDX-License-Identifier: GPL-3.0-or-later
// The shipped files of the time when data folders did not remember them. Used at the start, by the
// interface thread.
#pragma once

#include "host/LaidFiles.h"
#include "host/Paths.h"

namespace tovik::host {

/// What a folder without a memory would remember: the files in it that are one of those laid at
/// that time. Its version is empty.
[[nodiscard]] LaidFiles recognisedFiles(const Paths& paths);

} // namespace tovik::host
