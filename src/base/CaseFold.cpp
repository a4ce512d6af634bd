// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CaseFold.h"

#include "base/BaseLetters.h"
#include "base/Text.h"
#include "base/Unicode.h"
#include "base/Windows1252.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace tovik::base {

namespace {

/// Every `step`-th character from `first` to `last` is a capital; its small letter lies `distance`
/// behind it.
struct Capitals {
    std::uint32_t first;
    std::uint32_t last;
    std::uint32_t step;
    std::int32_t distance;
};

constexpr std::array kCapitals{
    Capitals{0x00C0, 0x00D6, 1, 32},   Capitals{0x00D8, 0x00DE, 1, 32},
    Capitals{0x0100, 0x012E, 2, 1},    Capitals{0x0132, 0x0136, 2, 1},
    Capitals{0x0139, 0x0147, 2, 1},    Capitals{0x014A, 0x0176, 2, 1},
    Capitals{0x0178, 0x0178, 1, -121}, Capitals{0x0179, 0x017D, 2, 1},
    Capitals{0x017F, 0x017F, 1, -268}, Capitals{0x01CD, 0x01DB, 2, 1},
    Capitals{0x01DE, 0x01EE, 2, 1},    Capitals{0x01F8, 0x021E, 2, 1},
    Capitals{0x0222, 0x0232, 2, 1},    Capitals{0x0386, 0x0386, 1, 38},
    Capitals{0x0388, 0x038A, 1, 37},   Capitals{0x038C, 0x038C, 1, 64},
    Capitals{0x038E, 0x038F, 1, 63},   Capitals{0x0391, 0x03A1, 1, 32},
    Capitals{0x03A3, 0x03AB, 1, 32},   Capitals{0x03C2, 0x03C2, 1, 1},
    Capitals{0x0400, 0x040F, 1, 80},   Capitals{0x0410, 0x042F, 1, 32},
    Capitals{0x0460, 0x0480, 2, 1},    Capitals{0x048A, 0x04BE, 2, 1},
    Capitals{0x04C0, 0x04C0, 1, 15},   Capitals{0x04C1, 0x04CD, 2, 1},
    Capitals{0x04D0, 0x052E, 2, 1},    Capitals{0x0531, 0x0556, 1, 48},
    Capitals{0x1E00, 0x1E94, 2, 1},    Capitals{0x1E9E, 0x1E9E, 1, -7615},
    Capitals{0x1EA0, 0x1EFE, 2, 1},    Capitals{0xFF21, 0xFF3A, 1, 32},
};

static_assert(std::ranges::is_sorted(kCapitals, {}, &Capitals::first));

constexpr unsigned char kFirstLongForm = 0x80;

char folded(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::uint32_t folded(std::uint32_t character) {
    const auto* const row =
        std::ranges::lower_bound(kCapitals, character, std::ranges::less(), &Capitals::last);
    const bool capital = row != kCapitals.end() && character >= row->first &&
                         (character - row->first) % row->step == 0;
    return capital
               ? static_cast<std::uint32_t>(static_cast<std::int64_t>(character) + row->distance)
               : character;
}

/// The character of two to four bytes at the beginning of a text that is UTF-8.
std::uint32_t longForm(std::string_view text, std::size_t& bytes) {
    const auto lead = static_cast<unsigned char>(text.front());
    bytes = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    std::uint32_t character = lead & (0xFFU >> (bytes + 1));
    for (const char byte : text.substr(1, bytes - 1)) {
        character = character << 6 | (static_cast<unsigned char>(byte) & 0x3FU);
    }
    return character;
}

void appendCharacter(std::string& to, std::uint32_t character) {
    appendUtf8(to, folded(character));
}

void appendPlainCharacter(std::string& to, std::uint32_t character) {
    if (const BaseLetter* const letter = baseLetterOf(character)) {
        for (const char32_t plain : letter->base) {
            appendUtf8(to, plain);
        }
    } else if (!isMark(character)) {
        appendCharacter(to, character);
    }
}

template <typename Append>
void appendFoldedUtf8(std::string& to, std::string_view text, const Append& append) {
    while (!text.empty()) {
        if (static_cast<unsigned char>(text.front()) < kFirstLongForm) {
            to += folded(text.front());
            text.remove_prefix(1);
            continue;
        }
        std::size_t bytes = 0;
        append(to, longForm(text, bytes));
        text.remove_prefix(bytes);
    }
}

template <typename Append>
void appendShown(std::string& to, std::string_view bytes, const Append& append) {
    const bool ascii = std::ranges::all_of(
        bytes, [](char byte) { return static_cast<unsigned char>(byte) < kFirstLongForm; });
    if (ascii) {
        const std::size_t begin = to.size();
        to += bytes;
        for (std::size_t at = begin; at < to.size(); ++at) {
            to[at] = folded(to[at]);
        }
    } else if (isUtf8(bytes)) {
        appendFoldedUtf8(to, bytes, append);
    } else {
        appendFoldedUtf8(to, utf8FromWindows1252(bytes), append);
    }
}

} // namespace

void appendFolded(std::string& to, std::string_view bytes) {
    appendShown(to, bytes, appendCharacter);
}

void appendPlain(std::string& to, std::string_view bytes) {
    appendShown(to, bytes, appendPlainCharacter);
}

std::string foldedText(std::string_view bytes) {
    std::string text;
    appendFolded(text, bytes);
    return text;
}

} // namespace tovik::base
