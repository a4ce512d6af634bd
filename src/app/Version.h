// SPDX-License-Identifier: GPL-3.0-or-later
// The version of the program, as the build knows it. Any thread.
#pragma once

namespace tovik::app {

inline constexpr const char* kVersion = TOVIK_VERSION;

} // namespace tovik::app
