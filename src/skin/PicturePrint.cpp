// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/PicturePrint.h"

#include <algorithm>
#include <cstring>

namespace tovik::skin {

namespace {

// Both odd, so that a step loses nothing of what came before it.
constexpr std::uint64_t kFirst = 0x9E3779B97F4A7C15;
constexpr std::uint64_t kSecond = 0xBF58476D1CE4E5B9;

constexpr std::uint64_t mixed(std::uint64_t print, std::uint64_t word) noexcept {
    print = (print ^ word) * kFirst;
    print = (print ^ (print >> 32)) * kSecond;
    return print ^ (print >> 29);
}

/// Eight bytes a step: it runs over the whole skin at each start.
std::uint64_t mixedIn(std::uint64_t print, std::string_view bytes) noexcept {
    print = mixed(print, bytes.size());
    while (!bytes.empty()) {
        std::uint64_t word = 0;
        const std::size_t count = std::min(bytes.size(), sizeof word);
        std::memcpy(&word, bytes.data(), count);
        print = mixed(print, word);
        bytes.remove_prefix(count);
    }
    return print;
}

} // namespace

std::uint64_t picturePrint(std::string_view name, std::string_view bytes) noexcept {
    return mixedIn(mixedIn(kFirst, name), bytes);
}

std::string printName(std::uint64_t print) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string name;
    for (int shift = 60; shift >= 0; shift -= 4) {
        name += kDigits[print >> static_cast<unsigned>(shift) & 0xFU];
    }
    return name;
}

} // namespace tovik::skin
