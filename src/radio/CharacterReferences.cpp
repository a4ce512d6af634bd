// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/CharacterReferences.h"

#include "base/Unicode.h"
#include "base/Windows1252.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

namespace tovik::radio {

namespace {

constexpr std::size_t kLongest = 12; ///< "&#x0010FFFF;"
constexpr int kDecimal = 10;
constexpr int kHexadecimal = 16;
constexpr std::uint32_t kFirstOldControl = 0x80;
constexpr std::uint32_t kLastOldControl = 0x9F;
constexpr std::uint32_t kFirstSurrogate = 0xD800;
constexpr std::uint32_t kLastSurrogate = 0xDFFF;
constexpr std::uint32_t kLastCharacter = 0x10FFFF;

struct Named {
    std::string_view name;
    std::string_view character;
};

constexpr std::array kNamed = {Named{"amp", "&"}, Named{"lt", "<"}, Named{"gt", ">"},
                               Named{"quot", "\""}, Named{"apos", "'"}};

/// Nothing for what is no character.
std::string characterOf(std::uint32_t number) {
    if (number == 0 || number > kLastCharacter ||
        (number >= kFirstSurrogate && number <= kLastSurrogate)) {
        return {};
    }
    if (number >= kFirstOldControl && number <= kLastOldControl) {
        // Nobody means the control characters: pages take these for Windows-1252, too.
        return base::utf8FromWindows1252(std::string(1, static_cast<char>(number)));
    }
    std::string character;
    base::appendUtf8(character, number);
    return character;
}

std::string numbered(std::string_view digits) {
    const bool hexadecimal = digits.starts_with('x') || digits.starts_with('X');
    digits.remove_prefix(hexadecimal ? 1 : 0);
    std::uint32_t number = 0;
    const char* const end = digits.data() + digits.size();
    const auto result =
        std::from_chars(digits.data(), end, number, hexadecimal ? kHexadecimal : kDecimal);
    return result.ec == std::errc() && result.ptr == end ? characterOf(number) : std::string();
}

struct Reference {
    std::size_t size = 0; ///< with "&" and ";"; 0: there is none
    std::string character{};
};

/// The one that begins with the text.
Reference referenceAt(std::string_view text) {
    const std::size_t end = text.substr(0, kLongest).find(';');
    if (!text.starts_with('&') || end == std::string_view::npos) {
        return {};
    }
    const std::string_view name = text.substr(1, end - 1);
    if (name.starts_with('#')) {
        std::string character = numbered(name.substr(1));
        return character.empty() ? Reference{} : Reference{end + 1, std::move(character)};
    }
    const auto* const row = std::ranges::find(kNamed, name, &Named::name);
    return row == kNamed.end() ? Reference{} : Reference{end + 1, std::string(row->character)};
}

} // namespace

std::string withoutReferences(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const Reference reference = referenceAt(text);
        if (reference.size > 0) {
            out += reference.character;
        } else {
            out += text.front();
        }
        text.remove_prefix(std::max<std::size_t>(reference.size, 1));
    }
    return out;
}

std::size_t findBesideReferences(std::string_view text, char wanted) {
    std::size_t at = 0;
    while (at < text.size() && text[at] != wanted) {
        at += std::max<std::size_t>(referenceAt(text.substr(at)).size, 1);
    }
    return at < text.size() ? at : std::string_view::npos;
}

} // namespace tovik::radio
