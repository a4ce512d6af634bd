// SPDX-License-Identifier: GPL-3.0-or-later
// The CD-Text of a disc as libcdio tells it. The thread of its drive.
#pragma once

#include "sound/cd/libcdio/Handle.h"

#include <cdio/cdtext.h>

#include <string>
#include <string_view>

namespace tovik::sound::libcdio {

/// "TITLE0=Album", "PERFORMER0=Somebody", "TITLE1=Song" and so on, each ended by a NUL, and an
/// empty one behind the last; empty where the disc tells none. `isImage`: its text came from a
/// file.
[[nodiscard]] std::string cdTextOf(CdIo_t& handle, bool isImage);

/// The same of a text alone: of tracks `first` on, `count` of them.
[[nodiscard]] std::string linesOf(const cdtext_t& text, unsigned first, unsigned count,
                                  bool isImage);

/// The text files beside images are read as Latin-1, so that UTF-8 comes out encoded twice: gives
/// the text that was meant. Any other text stays.
[[nodiscard]] std::string withoutSecondEncoding(std::string_view text);

} // namespace tovik::sound::libcdio
