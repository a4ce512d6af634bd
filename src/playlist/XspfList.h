// SPDX-License-Identifier: GPL-3.0-or-later
// Between the bytes of an XSPF file (version 1 of the XML Shareable Playlist Format) and a list.
// Any thread, but for what takes a list: interface thread.
#pragma once

#include "playlist/ListEntry.h"
#include "playlist/ListManner.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::playlist {

class stdSS;

/// The tracks of an XSPF file that have a location: of several the first that names a file or an
/// address that can be played, else the first. Relative ones count from "xml:base" (XML Base),
/// without that from the list's folder. A title is that of the track, behind its creator where
/// there is one. Nothing for what is no XSPF.
[[nodiscard]] std::optional<std::vector<ListEntry>> xspfEntries(std::string_view text,
                                                                const ListManner& manner);

/// The list as an XSPF file.
[[nodiscard]] std::string xspfText(const stdSS& list, const ListManner& manner);

} // namespace tovik::playlist
