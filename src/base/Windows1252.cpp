// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Windows1252.h"

#include "base/Text.h"
#include "base/Unicode.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tovik::base {

namespace {

constexpr std::uint32_t kTableStart = 0x80;
constexpr std::uint32_t kLatinStart = 0xA0; // from here on as Unicode

constexpr std::array<std::uint32_t, kLatinStart - kTableStart> kTable{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::optional<char> byteOf(std::uint32_t character) {
    if (character < kTableStart || (character >= kLatinStart && character <= 0xFF)) {
        return static_cast<char>(character);
    }
    const auto* const place = std::find(kTable.begin(), kTable.end(), character);
    if (place == kTable.end()) {
        return std::nullopt;
    }
    return static_cast<char>(kTableStart + static_cast<std::uint32_t>(place - kTable.begin()));
}

} // namespace

std::string utf8FromWindows1252(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        const std::uint32_t number = static_cast<std::uint8_t>(byte);
        const bool inTable = number >= kTableStart && number < kLatinStart;
        appendUtf8(text, inTable ? kTable.at(number - kTableStart) : number);
    }
    return text;
}

std::optional<std::string> windows1252FromUtf8(std::string_view text) {
    if (!isUtf8(text)) {
        return std::nullopt;
    }
    std::string bytes;
    while (!text.empty()) {
        const std::optional<char> byte = byteOf(takeCharacter(text));
        if (!byte) {
            return std::nullopt;
        }
        bytes.push_back(*byte);
    }
    return bytes;
}

std::string displayText(std::string_view bytes) {
    return isUtf8(bytes) ? std::string(bytes) : utf8FromWindows1252(bytes);
}

} // namespace tovik::base
