// SPDX-License-Identifier: GPL-3.0-or-later
// Says in an error what it is about. Any thread.
#pragma once

#include "base/RuntimeError.h"

#include <string_view>

namespace tovik::base {

/// The same error, with ": " and the place (a file, a key and its text) behind its description.
[[nodiscard]] RuntimeError withPlace(const RuntimeError& error, std::string_view place);

} // namespace tovik::base
