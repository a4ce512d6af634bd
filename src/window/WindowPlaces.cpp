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

using Pair = std::array<int, 2>;

std::optional<Pair> pairIn(std::string_view text) {
    Pair pair{};
    for (int& number : pair) {
        const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (failure != std::errc()) {
            return std::nullopt;
        }
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
        if (text.starts_with(' ')) {
            text.remove_prefix(1);
        }
    }
    return text.empty() ? std::optional(pair) : std::nullopt;
}

std::optional<Pair> kept(const player::PlayerState& state, std::string_view name) {
    std::optional<Pair> pair;
    if (state.comfort.keepsPlaces) {
        eachEntry(state.WindowPlaces, [&](std::string_view entry) {
            const auto text = behindName(entry, name);
            pair = text ? pairIn(*text) : std::nullopt;
            return text.has_value();
        });
    }
    return pair;
}

void note(const player::Core& core, std::string_view name, const Pair& pair) {
    player::PlayerState& state = core.state;
    if (!state.comfort.keepsPlaces || kept(state, name) == pair) {
        return;
    }
    std::string places =
        std::string(name) + " " + std::to_string(pair[0]) + " " + std::to_string(pair[1]);
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

/// No window has a name with such a sign.
std::string nameOfSize(std::string_view name) {
    return std::string(name) + ".size";
}

} // namespace

std::optional<ScreenPlace> keptPlace(const player::PlayerState& state, std::string_view name) {
    const auto pair = kept(state, name);
    return pair ? std::optional(ScreenPlace{.left = pair->at(0), .top = pair->at(1)})
                : std::nullopt;
}

void notePlace(const player::Core& core, std::string_view name, const ScreenPlace& place) {
    note(core, name, {place.left, place.top});
}

std::optional<ScreenSize> keptSize(const player::PlayerState& state, std::string_view name) {
    const auto pair = kept(state, nameOfSize(name));
    return pair && pair->at(0) > 0 && pair->at(1) > 0
               ? std::optional(ScreenSize{.width = pair->at(0), .height = pair->at(1)})
               : std::nullopt;
}

void noteSize(const player::Core& core, std::string_view name, const ScreenSize& size) {
    note(core, nameOfSize(name), {size.width, size.height});
}

} // namespace tovik::window
