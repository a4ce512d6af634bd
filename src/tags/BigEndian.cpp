// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/BigEndian.h"

namespace tovik::tags {

namespace {

constexpr std::size_t kNumberBytes = 4;

} // namespace

std::int32_t FromBigEndian(std::string_view bytes) noexcept {
    std::uint32_t number = 0;
    for (std::size_t index = 0; index < kNumberBytes; ++index) {
        const unsigned byte = index < bytes.size() ? static_cast<unsigned char>(bytes[index]) : 0U;
        number = number << 8U | byte;
    }
    return static_cast<std::int32_t>(number);
}

void PutBigEndian(std::string& buffer, std::size_t index, std::int32_t number) {
    auto rest = static_cast<std::uint32_t>(number);
    for (std::size_t byte = kNumberBytes; byte-- > 0;) {
        buffer.at(index + byte) = static_cast<char>(rest & 0xFFU);
        rest >>= 8U;
    }
}

std::int32_t fromSevenBits(std::string_view bytes) noexcept {
    std::uint32_t number = 0;
    for (std::size_t index = 0; index < kNumberBytes; ++index) {
        const unsigned byte =
            index < bytes.size() ? static_cast<unsigned char>(bytes[index]) : 0xFFU;
        if (byte > 0x7F) {
            return -1;
        }
        number = number << 7U | byte;
    }
    return static_cast<std::int32_t>(number);
}

} // namespace tovik::tags
