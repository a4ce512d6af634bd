// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CommandText.h"

#include <algorithm>

namespace tovik::base {

namespace {

std::vector<std::string> split(std::string_view text, char separator) {
    std::vector<std::string> pieces;
    while (true) {
        const std::size_t end = text.find(separator);
        pieces.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return pieces;
        }
        text.remove_prefix(end + 1);
    }
}

bool isQuoted(std::string_view commandLine) {
    return commandLine.find('"') != std::string_view::npos;
}

/// Split at double quotes; where there is none, at "/" with one more "/" behind the text.
std::vector<std::string> piecesOf(std::string_view commandLine) {
    return isQuoted(commandLine) ? split(commandLine, '"')
                                 : split(std::string(commandLine) + '/', '/');
}

} // namespace

std::vector<std::string> commandArguments(std::string_view commandLine) {
    std::vector<std::string> pieces = piecesOf(commandLine);
    if (!isQuoted(commandLine)) {
        pieces[1] = commandLine;
    }
    return pieces;
}

std::string handedOverPath(std::string_view commandLine) {
    return piecesOf(commandLine)[1];
}

} // namespace tovik::base
