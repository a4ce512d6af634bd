// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/PlayerArguments.h"

#include "base/PathText.h"
#include "base/Text.h"
#include "base/Url.h"

#include <algorithm>
#include <array>

namespace tovik::host {

namespace {

constexpr std::array<std::string_view, 3> kSwitches{"/Play", "/ADD", "/Open"};

bool isSwitch(std::string_view word) {
    return std::any_of(kSwitches.begin(), kSwitches.end(), [word](std::string_view name) {
        return base::equalsIgnoringCase(word, name);
    });
}

std::string replaced(std::string_view text, char from, char to) {
    std::string result(text);
    std::replace(result.begin(), result.end(), from, to);
    return result;
}

std::string fileOrAddress(std::string_view word, std::string_view workingFolder) {
    if (auto path = base::pathFromFileUrl(word)) {
        return *path;
    }
    return base::isUrl(word) ? std::string(word) : base::absolutePath(word, workingFolder);
}

} // namespace

PlayerArguments playerArguments(std::span<const std::string_view> words,
                                std::string_view workingFolder) {
    PlayerArguments arguments;
    for (const std::string_view word : words) {
        if (word.empty()) {
            continue;
        }
        if (!arguments.text.empty()) {
            arguments.text += ' ';
        }
        if (isSwitch(word)) {
            arguments.text += word;
            continue;
        }
        arguments.files.push_back(fileOrAddress(word, workingFolder));
        arguments.text += '"' + replaced(arguments.files.back(), '"', kQuoteStandIn) + '"';
    }
    return arguments;
}

std::string withQuotes(std::string_view name) {
    return replaced(name, kQuoteStandIn, '"');
}

} // namespace tovik::host
