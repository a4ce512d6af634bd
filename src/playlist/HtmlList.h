// SPDX-License-Identifier: GPL-3.0-or-later
// A list as a page for browsers. Interface thread.
#pragma once

#include <string>

namespace tovik::playlist {

class stdSS;

/// The whole page, one link a row. Titles and file names stand in it as they are.
[[nodiscard]] std::string htmlText(const stdSS& list);

} // namespace tovik::playlist
