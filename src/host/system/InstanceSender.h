// SPDX-License-Identifier: GPL-3.0-or-later
// Sends a message to the instance that runs. Waits, so only for a start that is about to end. Any
// thread.
#pragma once

#include "host/InstanceMessages.h"

#include <chrono>
#include <string>

namespace tovik::host {

inline constexpr std::chrono::milliseconds kLongestSend{5000};

/// As `InstanceMessages::send`, to the socket of that path.
[[nodiscard]] bool sendToInstance(const std::string& socketPath, const InstanceMessage& message,
                                  const InstanceMessages::OtherRuns& otherRuns,
                                  std::chrono::milliseconds longest = kLongestSend);

} // namespace tovik::host
