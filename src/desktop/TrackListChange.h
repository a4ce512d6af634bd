// SPDX-License-Identifier: GPL-3.0-or-later
// How a list of tracks became another one, for those who are told of each track that comes or goes.
// Pure; any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tovik::desktop {

struct TrackListChange {
    enum class Kind : std::uint8_t { none, added, removed, replaced };

    /// From so many tracks on the whole list is told anew.
    static constexpr std::size_t kMany = 10;

    Kind kind = Kind::none;

    /// Places from 0: of those that came, in the new list, of those that went, in the old one.
    std::vector<std::size_t> places{};

    bool operator==(const TrackListChange&) const = default;
};

/// Each path stands once in a list.
[[nodiscard]] TrackListChange trackListChange(const std::vector<std::string>& before,
                                              const std::vector<std::string>& now);

} // namespace tovik::desktop
