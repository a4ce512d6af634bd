// SPDX-License-Identifier: GPL-3.0-or-later
// How often a thread of this process has gone to sleep, as the kernel counts it: a thread that does
// not wake up does not fall asleep again.
#pragma once

#include <optional>
#include <string>

namespace tovik::sound {

/// Nothing when there is no thread of that name.
[[nodiscard]] std::optional<long> timesFallenAsleep(const std::string& threadName);

} // namespace tovik::sound
