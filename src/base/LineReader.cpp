// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/LineReader.h"

#include <algorithm>

namespace tovik::base {

std::optional<std::string_view> LineReader::next() noexcept {
    if (rest_.empty()) {
        return std::nullopt;
    }
    // Not find_first_of, which searches its two characters anew for each letter.
    const auto* const end = std::ranges::find_if(
        rest_, [](char character) { return character == '\r' || character == '\n'; });
    const auto length = static_cast<std::size_t>(end - rest_.begin());
    const std::string_view line = rest_.substr(0, length);
    rest_.remove_prefix(length);
    if (rest_.starts_with("\r\n")) {
        rest_.remove_prefix(2);
    } else if (!rest_.empty()) {
        rest_.remove_prefix(1);
    }
    return line;
}

} // namespace tovik::base
