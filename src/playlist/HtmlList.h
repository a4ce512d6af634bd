// SPDX-License-Identifier: GPL-3.0-or-later
// A list as a page for browsers. Interface thread.
#pragma once

#include "playlist/ListManner.h"

#include <string>

namespace tovik::playlist {

class stdSS;

/// The whole page, one link a row. Titles and file names stand in it as they are; with
/// `Comfort::escapesPage` as text of a page in UTF-8, and the files as references.
[[nodiscard]] std::string htmlText(const stdSS& list, const ListManner& manner = {});

} // namespace tovik::playlist
