// SPDX-License-Identifier: GPL-3.0-or-later
// The table of contents of a disc as libcdio tells it. The thread of its drive.
#pragma once

#include "sound/api/DiscToc.h"
#include "sound/cd/libcdio/Handle.h"

#include <optional>

namespace tovik::sound::libcdio {

/// Nothing without a disc, and where what is told makes no sense.
[[nodiscard]] std::optional<DiscToc> contentsOf(CdIo_t& handle);

} // namespace tovik::sound::libcdio
