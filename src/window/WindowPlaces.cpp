// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/WindowPlaces.h"

#include <array>
#include <charconv>
#include <string>

namespace tovik::window {

namespace {

constexpr char kBetween = ';';

/// Calls `use` with each entry until it returns true.
template <typename Use>
void eachEntry(std::string_view places, const Use& use) {
    while (!places.empty()) {
        const std::string_view entry = places.substr(0, places.find(kBetween));
        if (use(entry)) {
            return;
        }
        places.remove_prefix(std::min(entry.size() + 1, places.size()));
    }
}

/// What stands behind the name of an entry; none in one of another name.
std::optional<std::string_view> behindName(std::string_view entry, std::string_view name) {
    if (!entry.starts_with(name) || entry.size() <= name.size() || entry[name.size()] != ' ') {
        return std::nullopt;
    }
    return entry.substr(name.size() + 1);
}

std::optional<ScreenPlace> placeIn(std::string_view text) {
    ScreenPlace place;
    for (int* const number : {&place.left, &place.top}) {
        const auto [end, failure] =
            std::from_chars(text.data(), text.data() + text.size(), *number);
        if (failure != std::errc()) {
            return std::nullopt;
        }
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        if (text.starts_with(' ')) {
            text.remove_prefix(1);
        }
    }
    return text.empty() ? std::optional(place) : std::nullopt;
}

} // namespace

std::optional<ScreenPlace> keptPlace(const player::PlayerState& state, std::string_view name) {
    std::optional<ScreenPlace> place;
    if (state.comfort.keepsPlaces) {
        eachEntry(state.WindowPlaces, [&](std::string_view entry) {
            const auto text = behindName(entry, name);
            place = text ? placeIn(*text) : std::nullopt;
            return text.has_value();
        });
    }
    return place;
}

void notePlace(const player::Core& core, std::string_view name, const ScreenPlace& place) {
    player::PlayerState& state = core.state;
    if (!state.comfort.keepsPlaces || keptPlace(state, name) == place) {
        return;
    }
    std::string places =
        std::string(name) + " " + std::to_string(place.left) + " " + std::to_string(place.top);
    eachEntry(state.WindowPlaces, [&](std::string_view entry) {
        if (!behindName(entry, name)) {
            places += kBetween;
            places += entry;
        }
        return false;
    });
    state.WindowPlaces = std::move(places);
    core.settings.changed("WPL");
}

} // namespace tovik::window
