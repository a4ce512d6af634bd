// SPDX-License-Identifier: GPL-3.0-or-later
// Between the bytes of an M3U file and a list. Interface thread.
#pragma once

#include "host/MessagePump.h"
#include "playlist/ListManner.h"

#include <string>
#include <string_view>

namespace tovik::playlist {

class stdSS;

/// How reading a list went.
enum class ReadEnd {
    Complete,
    Stopped,       ///< the stop flag was set
    ProgramEnding, ///< a pump step said so
};

/// Appends the entries of M3U text to the list. Gives way twice at each "#EXTINF" line, where it
/// looks at the stop flag, too. An entry without such a line ahead takes title and length of the
/// one before it, and every line that begins with no "#EXT" is an entry, unless
/// `Comfort::resetsTitles` says otherwise. Raises TypeMismatch or Overflow for a length that is no
/// number or too big, unless `Comfort::takesBadLengths` makes it 0; the rows added so far stay.
[[nodiscard]] ReadEnd appendM3u(std::string_view text, stdSS& list, host::MessagePump& pump,
                                const bool& stop, const ListManner& manner = {});

/// The list as M3U text.
[[nodiscard]] std::string m3uText(const stdSS& list, const ListManner& manner = {});

/// The same with titles in UTF-8, whatever they are in the list. Names stay bytes: they must be
/// found again.
[[nodiscard]] std::string m3u8Text(const stdSS& list, const ListManner& manner);

} // namespace tovik::playlist
