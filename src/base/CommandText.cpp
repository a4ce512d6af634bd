// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CommandText.h"

#include "base/Text.h"

#include <algorithm>
#include <array>

namespace tovik::base {

namespace {

constexpr std::string_view kAddSwitch = "/ADD";
constexpr std::array<std::string_view, 3> kSwitches{"/Play", kAddSwitch, "/Open"};

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

CommandWords commandWords(std::string_view commandLine) {
    CommandWords words;
    const std::vector<std::string> pieces = split(commandLine, '"');
    const auto isSwitch = [](const std::string& word) {
        return std::ranges::any_of(kSwitches, [&](std::string_view name) {
            return word.empty() || equalsIgnoringCase(word, name);
        });
    };
    for (std::size_t n = 0; n < pieces.size(); ++n) {
        const std::vector<std::string> outside = split(pieces[n], ' ');
        const bool quoted = n % 2 == 1;
        if (quoted || (pieces.size() == 1 && !std::ranges::all_of(outside, isSwitch))) {
            words.files.push_back(pieces[n]);
            continue;
        }
        words.adds = words.adds || std::ranges::any_of(outside, [](const std::string& word) {
                         return equalsIgnoringCase(word, kAddSwitch);
                     });
    }
    std::erase(words.files, "");
    return words;
}

std::string handedOverPath(std::string_view commandLine) {
    return piecesOf(commandLine)[1];
}

} // namespace tovik::base
