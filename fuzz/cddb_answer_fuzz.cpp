// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for what a server of the CDDB protocol answers. Titles come out as text that a
// line can hold, and no word of the server gets out of an address.
#include "base/Text.h"
#include "discs/CddbAnswer.h"
#include "discs/CddbRequest.h"
#include "discs/TocText.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

void demand(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void demandText(const std::string& text) {
    demand(tovik::base::isUtf8(text));
    demand(std::ranges::none_of(
        text, [](char sign) { return static_cast<unsigned char>(sign) < 0x20 || sign == 0x7F; }));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tovik::discs;
    const std::string_view bytes(static_cast<const char*>(static_cast<const void*>(data)), size);
    const QueryAnswer query = parseQuery(bytes);
    demand(query.matches.size() <= kMostMatches);
    for (const Match& match : query.matches) {
        demandText(match.title);
        const std::string url =
            readUrl({.host = "db.example", .client = "x"}, match.category, match.discId);
        demand(std::ranges::count(url, '&') == 2 && std::ranges::count(url, '?') == 1);
        demand(std::ranges::count(url, '+') == 6);
    }
    const ReadAnswer read = parseRead(bytes);
    demand(read.entry.tracks.size() <= kMostTracks);
    for (const std::string* const text :
         {&read.entry.artist, &read.entry.title, &read.entry.year, &read.entry.genre}) {
        demandText(*text);
    }
    for (const std::string& track : read.entry.tracks) {
        demandText(track);
    }
    const std::string id = discId(bytes.substr(0, bytes.find('\n')));
    demand(id.empty() || id.size() == 8);
    return 0;
}
