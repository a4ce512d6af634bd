// SPDX-License-Identifier: GPL-3.0-or-later
// Parts of file names, as the player's lists show and compare them. Pure; any thread.
#pragma once

#include <string_view>

namespace tovik::playlist {

/// The text behind the last "." of the whole name, as it is written; empty if there is none. A dot
/// in a folder's name counts too.
[[nodiscard]] std::string_view get_extension(std::string_view Name) noexcept;

/// The text behind the last separator of folders: "/", and "\" in a name without any "/". The
/// whole name if there is none.
[[nodiscard]] std::string_view GetLastBackSlash(std::string_view Path) noexcept;

/// Whether a title is nothing but the name of that file, with its extension or without it.
[[nodiscard]] bool isNamedAfter(std::string_view title, std::string_view path) noexcept;

/// Whether it names a file of a disk: no address of the web, no track of a disc, not nothing.
[[nodiscard]] bool isOnDisk(std::string_view path) noexcept;

} // namespace tovik::playlist
