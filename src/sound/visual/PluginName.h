// SPDX-License-Identifier: GPL-3.0-or-later
// What a plug-in calls itself, fit for a menu. Any thread.
#pragma once

#include <string>
#include <string_view>

namespace tovik::sound {

inline constexpr std::size_t kLongestPluginName = 200; ///< bytes

/// The first line of any bytes that are said to be a name, of limited length, without control
/// characters.
[[nodiscard]] std::string pluginName(std::string_view bytes);

} // namespace tovik::sound
