// SPDX-License-Identifier: GPL-3.0-or-later
// Where the windows beside the main one stood and how large they were, kept from session to session
// where `Comfort::keepsPlaces` is on. Interface thread.
#pragma once

#include "player/Core.h"
#include "window/ScreenPlace.h"

#include <optional>
#include <string_view>

namespace tovik::window {

/// The mini window among the places; dialogs have their own names.
inline constexpr std::string_view kMiniWindow = "mini";

/// Where the window of that name stood last; none when that is not known, or not wanted.
[[nodiscard]] std::optional<ScreenPlace> keptPlace(const player::PlayerState& state,
                                                   std::string_view name);

/// The window of that name, of letters and digits, stands there now; it is stored when it rests.
void notePlace(const player::Core& core, std::string_view name, const ScreenPlace& place);

/// How large the window of that name was made; none when that is not known, or not wanted. Neither
/// number is below 1.
[[nodiscard]] std::optional<ScreenSize> keptSize(const player::PlayerState& state,
                                                 std::string_view name);

/// The window of that name has that size now; it is stored when it rests.
void noteSize(const player::Core& core, std::string_view name, const ScreenSize& size);

} // namespace tovik::window
