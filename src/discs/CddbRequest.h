// SPDX-License-Identifier: GPL-3.0-or-later
// The addresses of requests of the CDDB protocol, level 6, over HTTP. Any thread.
#pragma once

#include <string>
#include <string_view>

namespace tovik::discs {

/// Who asks whom.
struct CddbPeers {
    std::string host{};    ///< with a port and a path where they are not the usual ones
    std::string mail{};    ///< of the user; empty: "anonymous@localhost"
    std::string client{};  ///< the name of this program
    std::string version{}; ///< of it; empty: "0"
};

/// Asks which discs the server knows by this text. Empty for a text that is none.
[[nodiscard]] std::string queryUrl(const CddbPeers& peers, std::string_view toc);

/// Asks for the entry of a disc.
[[nodiscard]] std::string readUrl(const CddbPeers& peers, std::string_view category,
                                  std::string_view discId);

} // namespace tovik::discs
