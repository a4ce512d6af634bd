// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers of 32 bits with their high byte first, as ID3v2 tags hold them here. Any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::tags {

/// The number in the first four bytes, its sign bit carried through; bytes that are missing
/// count as 0.
[[nodiscard]] std::int32_t FromBigEndian(std::string_view bytes) noexcept;

/// Puts four bytes at an index of a buffer that holds them.
void PutBigEndian(std::string& buffer, std::size_t index, std::int32_t number);

/// The number that four bytes of seven bits tell, as other programs write sizes; negative where
/// one of them has its eighth bit, or one is missing.
[[nodiscard]] std::int32_t fromSevenBits(std::string_view bytes) noexcept;

} // namespace tovik::tags
