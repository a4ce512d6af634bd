// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/ListLines.h"

#include <algorithm>
#include <iterator>

namespace tovik::playlist {

void appendOneLine(std::string& list, std::string_view text) {
    std::ranges::transform(text, std::back_inserter(list), [](char character) {
        return character == '\r' || character == '\n' ? ' ' : character;
    });
    list += "\r\n";
}

} // namespace tovik::playlist
