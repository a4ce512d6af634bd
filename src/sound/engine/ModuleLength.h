// SPDX-License-Identifier: GPL-3.0-or-later
// How long a tracker module is, for who does not play it. Reads the disk, so not for the interface
// thread; any other.
#pragma once

#include <cstdint>
#include <string>

namespace tovik::sound {

/// The length of one pass in seconds, as a channel of it tells it; 0 for a file that is no module,
/// cannot be read, or does not open. Throws nothing.
[[nodiscard]] std::int32_t moduleSeconds(const std::string& path);

} // namespace tovik::sound
