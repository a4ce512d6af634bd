// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Unicode.h"

#include "base/LittleEndian.h"

#include <cstddef>
#include <optional>

namespace tovik::base {

namespace {

constexpr std::uint32_t kReplacement = 0xFFFD;
constexpr std::uint32_t kFirstHigh = 0xD800;
constexpr std::uint32_t kFirstLow = 0xDC00;
constexpr std::uint32_t kPastLow = 0xE000;
constexpr std::uint32_t kFirstOfPairs = 0x10000;

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";

constexpr bool isHigh(std::uint32_t unit) {
    return unit >= kFirstHigh && unit < kFirstLow;
}

constexpr bool isLow(std::uint32_t unit) {
    return unit >= kFirstLow && unit < kPastLow;
}

/// Units of a text, one after the other.
class Units {
public:
    Units(std::string_view bytes, ByteOrder order) : rest_(bytes), order_(order) {}

    [[nodiscard]] bool empty() const { return rest_.empty(); }

    /// Nothing where less than a unit is left.
    [[nodiscard]] std::optional<std::uint32_t> peek() const {
        if (rest_.size() < 2) {
            return std::nullopt;
        }
        const auto first = static_cast<std::uint8_t>(rest_[0]);
        const auto second = static_cast<std::uint8_t>(rest_[1]);
        return order_ == ByteOrder::BigEndian ? std::uint32_t{first} << 8U | second
                                              : std::uint32_t{second} << 8U | first;
    }

    void skip() { rest_.remove_prefix(rest_.size() < 2 ? rest_.size() : 2); }

private:
    std::string_view rest_;
    ByteOrder order_;
};

} // namespace

void appendUtf8(std::string& text, std::uint32_t character) {
    const auto append = [&text](std::uint32_t byte) { text.push_back(static_cast<char>(byte)); };
    const auto appendTail = [&](std::uint32_t shift) {
        append(0x80U | (character >> shift & 0x3FU));
    };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0U | character >> 6U);
        appendTail(0);
    } else if (character < kFirstOfPairs) {
        append(0xE0U | character >> 12U);
        appendTail(6);
        appendTail(0);
    } else {
        append(0xF0U | character >> 18U);
        appendTail(12);
        appendTail(6);
        appendTail(0);
    }
}

std::uint32_t takeCharacter(std::string_view& text) {
    const auto take = [&text] {
        const auto byte = static_cast<std::uint8_t>(text.front());
        text.remove_prefix(1);
        return static_cast<std::uint32_t>(byte);
    };
    const std::uint32_t lead = take();
    if (lead < 0x80) {
        return lead;
    }
    const unsigned more = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    std::uint32_t character = lead & (0x3FU >> more);
    for (unsigned index = 0; index < more; ++index) {
        character = character << 6U | (take() & 0x3FU);
    }
    return character;
}

std::string utf8FromUtf16(std::string_view bytes, ByteOrder order) {
    std::string text;
    text.reserve(bytes.size());
    for (Units units(bytes, order); !units.empty();) {
        const std::uint32_t unit = units.peek().value_or(kFirstLow);
        units.skip();
        if (const auto low = units.peek(); isHigh(unit) && low && isLow(*low)) {
            units.skip();
            appendUtf8(text, kFirstOfPairs + ((unit - kFirstHigh) << 10U | (*low - kFirstLow)));
        } else {
            appendUtf8(text, isHigh(unit) || isLow(unit) ? kReplacement : unit);
        }
    }
    return text;
}

std::u32string charactersOf(std::string_view text) {
    std::u32string characters;
    while (!text.empty()) {
        characters += static_cast<char32_t>(takeCharacter(text));
    }
    return characters;
}

std::string utf16LeOf(std::u32string_view characters) {
    std::string bytes;
    bytes.reserve(2 * characters.size());
    const auto append = [&bytes](std::uint32_t unit) {
        appendLittleEndian(bytes, static_cast<std::uint16_t>(unit));
    };
    for (const std::uint32_t character : characters) {
        if (character < kFirstOfPairs) {
            append(character);
        } else {
            append(kFirstHigh + ((character - kFirstOfPairs) >> 10U));
            append(kFirstLow + ((character - kFirstOfPairs) & 0x3FFU));
        }
    }
    return bytes;
}

std::string withoutByteOrderMark(std::string bytes) {
    if (bytes.starts_with(kUtf8Mark)) {
        return bytes.substr(kUtf8Mark.size());
    }
    const std::string_view body = std::string_view(bytes).substr(bytes.size() < 2 ? 0 : 2);
    if (bytes.starts_with(kLittleEndianMark)) {
        return utf8FromUtf16(body, ByteOrder::LittleEndian);
    }
    if (bytes.starts_with(kBigEndianMark)) {
        return utf8FromUtf16(body, ByteOrder::BigEndian);
    }
    return bytes;
}

} // namespace tovik::base
