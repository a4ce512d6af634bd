// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/LineReader.h"

#include <algorithm>

namespace tovik::base {

std::optional<std::string_view> LineReader::next() noexcept {
    if (rest_.empty()) {
        return std::nullopt;
    }
    const std::size_t length = std::min(rest_.find_first_of("\r\n"), rest_.size());
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
