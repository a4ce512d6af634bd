// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FileName.h"

#include "base/Controls.h"
#include "base/Text.h"
#include "base/Windows1252.h"

namespace tovik::base {

namespace {

constexpr std::string_view kParting = "/\\:|";
constexpr std::string_view kForbidden = "?*<>\"";
constexpr std::string_view kEdge = ". ";

/// " (2147483647)"
constexpr std::size_t kNumberBytes = 13;

std::string_view withoutEdges(std::string_view name) {
    const std::size_t first = name.find_first_not_of(kEdge);
    if (first == std::string_view::npos) {
        return {};
    }
    return name.substr(first, name.find_last_not_of(kEdge) + 1 - first);
}

} // namespace

std::string cleanFileName(std::string_view text, std::size_t ending) {
    std::string name;
    for (const char sign : withoutControls(displayText(text))) {
        if (kParting.find(sign) != std::string_view::npos) {
            name += '-';
        } else if (kForbidden.find(sign) == std::string_view::npos) {
            name += sign;
        }
    }
    const std::string_view kept = withoutEdges(name);
    return std::string(withoutEdges(cutToWidth(kept, kMostNameBytes - kNumberBytes - ending)));
}

std::string numberedFileName(std::string_view name, int number, std::string_view ending) {
    std::string numbered(name);
    if (number > 1) {
        numbered += " (" + std::to_string(number) + ")";
    }
    return numbered.append(ending);
}

} // namespace tovik::base
