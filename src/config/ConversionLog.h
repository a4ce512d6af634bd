// SPDX-License-Identifier: GPL-3.0-or-later
// The log of playing and converting jobs, "Tovik.log". Interface thread.
#pragma once

#include "host/Clock.h"
#include "host/Paths.h"

#include <cstdint>
#include <string_view>

namespace tovik::config {

/// Appends a line that tells with which error code of the sound library a job on a file ended;
/// does nothing when the code is not above 0. Raises if the log cannot be written.
void logConversion(const host::Paths& paths, const host::Clock& clock, std::int32_t code,
                   std::string_view fileName);

/// Appends a line of other words behind date ("yyyy-MM-dd") and time. Raises if the log cannot be
/// written.
void noteConversion(const host::Paths& paths, const host::Clock& clock, std::string_view words);

} // namespace tovik::config
