// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/TrackListChange.h"

#include <optional>

namespace tovik::desktop {

namespace {

/// The places of what `longer` has beside all of `shorter`, in its order; nothing where there is
/// more to it, or it is too much.
std::optional<std::vector<std::size_t>> placesOfMore(const std::vector<std::string>& shorter,
                                                     const std::vector<std::string>& longer) {
    if (longer.size() < shorter.size() ||
        longer.size() - shorter.size() >= TrackListChange::kMany) {
        return std::nullopt;
    }
    std::vector<std::size_t> places;
    std::size_t met = 0;
    for (std::size_t at = 0; at < longer.size(); ++at) {
        if (met < shorter.size() && longer[at] == shorter[met]) {
            ++met;
        } else {
            places.push_back(at);
        }
    }
    return met == shorter.size() ? std::optional(std::move(places)) : std::nullopt;
}

} // namespace

TrackListChange trackListChange(const std::vector<std::string>& before,
                                const std::vector<std::string>& now) {
    using Kind = TrackListChange::Kind;
    if (before == now) {
        return {};
    }
    if (auto places = placesOfMore(before, now)) {
        return {.kind = Kind::added, .places = std::move(*places)};
    }
    if (auto places = placesOfMore(now, before)) {
        return {.kind = Kind::removed, .places = std::move(*places)};
    }
    return {.kind = Kind::replaced};
}

} // namespace tovik::desktop
