// SPDX-License-Identifier: GPL-3.0-or-later
// What the user is told of failures of the sound library and of encoding. Interface thread.
#pragma once

#include "base/RuntimeError.h"
#include "host/Dialogs.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::config {

/// The text of an error code of the sound library; empty for a code without one.
[[nodiscard]] std::string_view BassErrorText(std::int32_t code) noexcept;

/// Shows a text in a box titled "Error", with the critical icon; the code stands below it unless
/// it is -1.
void ShowErrorBox(host::Dialogs& dialogs, std::string_view text, std::int32_t code);

/// The same for an error that ended a routine, with routine, module, number and description.
void ShowRoutineError(host::Dialogs& dialogs, std::string_view routine, std::string_view module,
                      const base::RuntimeError& error);

} // namespace tovik::config
