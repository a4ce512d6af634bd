// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tovik::base {

namespace {

constexpr char kCaseBit = 0x20;

char lower(char character) noexcept {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character | kCaseBit)
                                                : character;
}

char upper(char character) noexcept {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character & ~kCaseBit)
                                                : character;
}

bool isContinuation(char byte) noexcept {
    return (static_cast<std::uint8_t>(byte) & 0xC0U) == 0x80U;
}

/// How a UTF-8 character may begin: its first byte, its length and the range of its second byte
/// (which keeps out overlong forms, surrogates and numbers past U+10FFFF).
struct Lead {
    std::size_t length;
    std::uint8_t first;
    std::uint8_t last;
    std::uint8_t secondMin;
    std::uint8_t secondMax;
};

constexpr std::array kLeads{
    Lead{1, 0x00, 0x7F, 0x00, 0x00}, Lead{2, 0xC2, 0xDF, 0x80, 0xBF},
    Lead{3, 0xE0, 0xE0, 0xA0, 0xBF}, Lead{3, 0xE1, 0xEC, 0x80, 0xBF},
    Lead{3, 0xED, 0xED, 0x80, 0x9F}, Lead{3, 0xEE, 0xEF, 0x80, 0xBF},
    Lead{4, 0xF0, 0xF0, 0x90, 0xBF}, Lead{4, 0xF1, 0xF3, 0x80, 0xBF},
    Lead{4, 0xF4, 0xF4, 0x80, 0x8F},
};

/// The length of the UTF-8 character at the start of the bytes; 0 when there is none.
std::size_t characterLength(std::string_view bytes) noexcept {
    const auto first = static_cast<std::uint8_t>(bytes.front());
    const auto* const lead =
        std::find_if(kLeads.begin(), kLeads.end(), [first](const Lead& candidate) {
            return first >= candidate.first && first <= candidate.last;
        });
    if (lead == kLeads.end() || bytes.size() < lead->length) {
        return 0;
    }
    if (lead->length == 1) {
        return 1;
    }
    const auto second = static_cast<std::uint8_t>(bytes[1]);
    const std::string_view rest = bytes.substr(2, lead->length - 2);
    return second >= lead->secondMin && second <= lead->secondMax &&
                   std::all_of(rest.begin(), rest.end(), isContinuation)
               ? lead->length
               : 0;
}

} // namespace

bool isUtf8(std::string_view bytes) noexcept {
    while (!bytes.empty()) {
        const std::size_t length = characterLength(bytes);
        if (length == 0) {
            return false;
        }
        bytes.remove_prefix(length);
    }
    return true;
}

std::string_view cutToWidth(std::string_view text, std::size_t width) noexcept {
    if (text.size() <= width) {
        return text;
    }
    std::size_t end = width;
    if (isUtf8(text)) {
        while (end > 0 && isContinuation(text[end])) {
            --end;
        }
    }
    return text.substr(0, end);
}

std::string_view firstCharacters(std::string_view text, std::size_t count) noexcept {
    if (!isUtf8(text)) {
        return text.substr(0, count);
    }
    std::size_t end = 0;
    for (std::size_t characters = 0; end < text.size(); ++end) {
        if (!isContinuation(text[end]) && ++characters > count) {
            break;
        }
    }
    return text.substr(0, end);
}

std::string toLowerAscii(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lower);
    return result;
}

std::string toUpperAscii(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), upper);
    return result;
}

bool equalsIgnoringCase(std::string_view left, std::string_view right) noexcept {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char one, char other) { return lower(one) == lower(other); });
}

std::string_view trimmed(std::string_view text) noexcept {
    const auto first = std::min(text.find_first_not_of(' '), text.size());
    const auto last = text.find_last_not_of(' ');
    return text.substr(first, last == std::string_view::npos ? 0 : last + 1 - first);
}

std::string replaceAll(std::string_view text, std::string_view what, std::string_view with) {
    std::string result;
    std::size_t from = 0;
    for (std::size_t found = text.find(what); found != std::string_view::npos && !what.empty();
         found = text.find(what, from)) {
        result.append(text.substr(from, found - from)).append(with);
        from = found + what.size();
    }
    return result.append(text.substr(from));
}

} // namespace tovik::base
