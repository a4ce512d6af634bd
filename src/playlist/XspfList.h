// SPDX-License-Identifier: GPL-3.0-or-later
// Between the bytes of an XSPF file (version 1 of the XML Shareable Playlist Format) and a list.
// Interface thread.
#pragma once

#include "host/MessagePump.h"
#include "playlist/ListManner.h"
#include "playlist/M3uList.h"

#include <string>
#include <string_view>

namespace tovik::playlist {

class stdSS;

/// Appends the tracks of an XSPF file that have a location. A row's title is that of the track,
/// behind its creator where there is one. Gives way once at each. Of what is no XSPF nothing is
/// added.
[[nodiscard]] ReadEnd appendXspf(std::string_view text, stdSS& list, host::MessagePump& pump,
                                 const ListManner& manner);

/// The list as an XSPF file.
[[nodiscard]] std::string xspfText(const stdSS& list, const ListManner& manner);

} // namespace tovik::playlist
