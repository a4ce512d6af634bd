// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Url.h"

#include "base/Text.h"

#include <algorithm>
#include <charconv>

namespace tovik::base {

namespace {

bool isLetter(char character) noexcept {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool isSchemeCharacter(char character) noexcept {
    return isLetter(character) || (character >= '0' && character <= '9') || character == '+' ||
           character == '-' || character == '.';
}

constexpr std::string_view kFileScheme = "file:";
constexpr std::string_view kThisMachine = "localhost";
constexpr std::size_t kEscapeLength = 3; // "%2F"

/// The byte that an escape at the start of the text stands for.
std::optional<char> escapedByte(std::string_view text) {
    unsigned value = 0;
    const std::string_view digits = text.substr(1, kEscapeLength - 1);
    const auto result =
        std::from_chars(digits.data(), digits.data() + digits.size(), value, /*base=*/16);
    if (digits.size() + 1 < kEscapeLength || result.ec != std::errc() ||
        result.ptr != digits.data() + digits.size() || value == 0) {
        return std::nullopt;
    }
    return static_cast<char>(value);
}

std::optional<std::string> decoded(std::string_view text) {
    std::string bytes;
    while (!text.empty()) {
        if (text.front() != '%') {
            bytes.push_back(text.front());
            text.remove_prefix(1);
            continue;
        }
        const std::optional<char> byte = escapedByte(text);
        if (!byte) {
            return std::nullopt;
        }
        bytes.push_back(*byte);
        text.remove_prefix(kEscapeLength);
    }
    return bytes;
}

} // namespace

bool isUrl(std::string_view text) noexcept {
    const auto end = text.find("://");
    return end != std::string_view::npos && end > 0 && isLetter(text.front()) &&
           std::all_of(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(end),
                       isSchemeCharacter);
}

bool isWebUrl(std::string_view text) noexcept {
    constexpr std::string_view kPlain = "http://";
    constexpr std::string_view kSecure = "https://";
    return equalsIgnoringCase(text.substr(0, kPlain.size()), kPlain) ||
           equalsIgnoringCase(text.substr(0, kSecure.size()), kSecure);
}

std::optional<std::string> pathFromFileUrl(std::string_view url) {
    if (!equalsIgnoringCase(url.substr(0, kFileScheme.size()), kFileScheme)) {
        return std::nullopt;
    }
    std::string_view path = url.substr(kFileScheme.size());
    if (path.starts_with("//")) {
        path.remove_prefix(2);
        const std::string_view machine = path.substr(0, path.find('/'));
        if (!machine.empty() && !equalsIgnoringCase(machine, kThisMachine)) {
            return std::nullopt;
        }
        path.remove_prefix(machine.size());
    }
    if (!path.starts_with('/')) {
        return std::nullopt;
    }
    return decoded(path);
}

std::string fileUrl(std::string_view path) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    constexpr std::string_view kPlain = "-._~/";
    std::string url = "file://";
    for (const char c : path) {
        const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        if (letter || (c >= '0' && c <= '9') || kPlain.find(c) != std::string_view::npos) {
            url += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            url.append(1, '%').append(1, kDigits[byte >> 4U]).append(1, kDigits[byte & 0xFU]);
        }
    }
    return url;
}

} // namespace tovik::base
