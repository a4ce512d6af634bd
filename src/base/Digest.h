// SPDX-License-Identifier: GPL-3.0-or-later
// A short name for bytes. Any thread.
#pragma once

#include <string>
#include <string_view>

namespace tovik::base {

/// FNV-1a of 64 bits (Fowler, Noll, Vo) as 16 small hexadecimal digits. Tells different bytes apart
/// unless somebody means to deceive it.
[[nodiscard]] std::string digestOf(std::string_view bytes);

} // namespace tovik::base
