// SPDX-License-Identifier: GPL-3.0-or-later
// Which of the player's languages suits the user's locale. Any thread.
#pragma once

#include "host/Paths.h"

#include <string>
#include <string_view>

namespace tovik::host {

/// The name (without extension) of the language file in the data folder for a locale such as
/// "sl_SI.UTF-8"; "English" where the locale is unknown or its file is not there.
[[nodiscard]] std::string languageOfLocale(std::string_view locale, const Paths& paths);

} // namespace tovik::host
