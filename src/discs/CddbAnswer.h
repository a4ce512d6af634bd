// SPDX-License-Identifier: GPL-3.0-or-later
// What servers of the CDDB protocol, level 6, answer: the hits of a query, and the entry of a disc.
// Whatever stands in the bytes, nothing is raised. Any thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tovik::discs {

/// A disc that the server knows.
struct Match {
    std::string category{}; ///< of the server's database, as it stands there
    std::string discId{};   ///< the same
    std::string title{};    ///< "Artist / Album", UTF-8

    [[nodiscard]] bool operator==(const Match&) const = default;
};

/// The codes of the protocol that are told apart.
namespace code {
inline constexpr int kExactMatch = 200;
inline constexpr int kExactMatches = 210;   ///< a list follows
inline constexpr int kInexactMatches = 211; ///< the same
inline constexpr int kNoMatch = 202;
inline constexpr int kEntryFollows = 210; ///< of a read
} // namespace code

struct QueryAnswer {
    int code = 0; ///< 0: this is no answer, or a list without its end
    std::vector<Match> matches{};
};

/// The most hits that are taken of a list.
inline constexpr std::size_t kMostMatches = 100;

/// Lines of a list that are no hit are passed over.
[[nodiscard]] QueryAnswer parseQuery(std::string_view answer);

/// What the server says of a disc. Texts are UTF-8 without control characters.
struct DiscEntry {
    std::string artist{};
    std::string title{};
    std::string year{};
    std::string genre{};
    std::vector<std::string> tracks{}; ///< as many as the entry names, 99 at most
};

struct ReadAnswer {
    int code = 0; ///< 0: this is no answer, or an entry without its end
    DiscEntry entry{};
};

/// The entry has its format from the service's database files: lines of a key, "=" and a text; what
/// does not fit on one line goes on in the next of the same key. Bytes that are no UTF-8 count as
/// Windows-1252, text by text. Without " / " in it the title of the disc is that of the artist,
/// too.
[[nodiscard]] ReadAnswer parseRead(std::string_view answer);

} // namespace tovik::discs
