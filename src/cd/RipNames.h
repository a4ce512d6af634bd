// SPDX-License-Identifier: GPL-3.0-or-later
// The names of what a rip writes. Any thread.
#pragma once

#include "cd/CdState.h"
#include "host/Clock.h"
#include "host/Paths.h"
#include "tags/FreshTags.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::cd {

/// A text as the name of a file or folder: "/" and the zero byte become "-", and a name that would
/// stand for a folder itself ("." and "..") gets a "_" behind it. Nothing else is changed.
[[nodiscard]] std::string ripName(std::string_view text);

/// The same as a name that every system takes; as `ripName` has it where nothing is left.
[[nodiscard]] std::string cleanRipName(std::string_view text);

/// "TRACK", the number of the track, counted from 0, from 1, and the extension.
[[nodiscard]] std::string plainTrackFile(std::int32_t track, std::string_view extension);

/// Artist, "-" and album; empty when both are.
[[nodiscard]] std::string albumName(const DiscForm& form);

/// The name of the folder for an album without artist and title: the word for it, date and time.
[[nodiscard]] std::string unnamedAlbum(std::string_view word, const host::LocalTime& now);

/// The name of the track, or "Track " and its number from 1 where it has none.
[[nodiscard]] std::string trackTitle(const DiscForm& form, std::size_t track);

/// What a file of the track, counted from 0, tells of itself.
[[nodiscard]] tags::FreshTags tagsOf(const DiscForm& form, std::int32_t track);

/// Where the setting "ROP" leads: a path of another system goes to the folder for its drives.
[[nodiscard]] std::string ripFolder(const host::Paths& paths, const std::string& rop);

} // namespace tovik::cd
