// SPDX-License-Identifier: GPL-3.0-or-later
// The title that a tag gives a row of a list. Interface thread.
#pragma once

#include "tags/cMP3ID3v1.h"

#include <optional>
#include <string>

namespace tovik::tags {

/// Artist, "-", title; nothing unless the tag that was read last has both.
[[nodiscard]] std::optional<std::string> tagTitle(const cMP3ID3v1& tag);

} // namespace tovik::tags
