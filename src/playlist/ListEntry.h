// SPDX-License-Identifier: GPL-3.0-or-later
// What a list file says of one row. Any thread.
#pragma once

#include <cstdint>
#include <string>

namespace tovik::playlist {

/// An entry of a list file, as it becomes a row.
struct ListEntry {
    std::string fileName{};
    std::string title{};
    std::string timeText{};
    std::int32_t seconds = 0;

    friend bool operator==(const ListEntry&, const ListEntry&) = default;
};

} // namespace tovik::playlist
