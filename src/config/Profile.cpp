// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Profile.h"

#include "base/LineReader.h"
#include "base/Text.h"

namespace tovik::config {

namespace {

std::string_view unquoted(std::string_view value) {
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

bool isSection(std::string_view line, std::string_view section) {
    return line.size() >= 2 && line.front() == '[' && line.back() == ']' &&
           base::equalsIgnoringCase(base::trimmed(line.substr(1, line.size() - 2)), section);
}

} // namespace

std::string profileValue(std::string_view bytes, std::string_view section, std::string_view key) {
    bool inside = false;
    base::LineReader lines(bytes);
    while (const auto next = lines.next()) {
        const std::string_view line = base::trimmed(*next);
        if (line.starts_with('[')) {
            if (inside) {
                break;
            }
            inside = isSection(line, section);
            continue;
        }
        const std::size_t equals = line.find('=');
        if (inside && equals != std::string_view::npos &&
            base::equalsIgnoringCase(base::trimmed(line.substr(0, equals)), key)) {
            const std::string_view value = unquoted(base::trimmed(line.substr(equals + 1)));
            return std::string(base::cutToWidth(value, kProfileValueWidth));
        }
    }
    return {};
}

} // namespace tovik::config
