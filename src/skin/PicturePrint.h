// SPDX-License-Identifier: GPL-3.0-or-later
// By what a picture is known again: whether a bitmap in the skin's folder is still the one that was
// shipped. Any thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::skin {

/// A print of a bitmap's name (without its ending) and of all its bytes. One that differs in a
/// single byte has another print; that two others share one is as likely as a guess among 2^64.
[[nodiscard]] std::uint64_t picturePrint(std::string_view name, std::string_view bytes) noexcept;

/// What the file is called that holds such a picture in a larger size: 16 hexadecimal digits.
[[nodiscard]] std::string printName(std::uint64_t print);

} // namespace tovik::skin
