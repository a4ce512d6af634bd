// SPDX-License-Identifier: GPL-3.0-or-later
// Which output device the word behind --device stands for. Interface thread.
#pragma once

#include "sound/output/OutputDevice.h"

#include <memory>
#include <optional>
#include <string>

namespace tovik::app {

/// The default device when nothing was asked for; a device that is silent, but keeps time, for
/// "silent"; else the device of the system with that name.
[[nodiscard]] std::unique_ptr<sound::OutputDevice>
makeOutput(const std::optional<std::string>& asked);

/// Prints the names of the system's devices, one a line; false when there is none.
[[nodiscard]] bool listOutputs();

} // namespace tovik::app
