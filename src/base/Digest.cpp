// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Digest.h"

#include <cstdint>

namespace tovik::base {

std::string digestOf(std::string_view bytes) {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char letter : bytes) {
        hash = (hash ^ static_cast<unsigned char>(letter)) * 0x100000001B3;
    }
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text(16, '0');
    for (auto digit = text.rbegin(); digit != text.rend(); ++digit, hash >>= 4) {
        *digit = kDigits[hash & 0xF];
    }
    return text;
}

} // namespace tovik::base
