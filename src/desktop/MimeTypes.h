// SPDX-License-Identifier: GPL-3.0-or-later
// What desktops call the files that the player knows. Pure; any thread.
#pragma once

#include <span>
#include <string_view>

namespace tovik::desktop {

/// The media types of files with this extension (in lower case, without its dot), as the shared
/// MIME database has them; desktops differ, so some have several. None for an extension that is
/// not known.
[[nodiscard]] std::span<const std::string_view> mimeTypesOf(std::string_view extension) noexcept;

} // namespace tovik::desktop
