// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for an XSPF file: it is read, and what was read is written and read again. A list
// that was written by the player always comes back as it was.
#include "base/Unicode.h"
#include "ListDemands.h"
#include "playlist/stdSS.h"
#include "playlist/XspfList.h"

#include <cstdint>
#include <cstdlib>

using namespace tovik;
using fuzz::demandSameRows;

namespace {

void append(const std::string& text, playlist::stdSS& list, const playlist::ListManner& manner) {
    const auto entries = playlist::xspfEntries(text, manner);
    for (const auto& entry : entries.value_or(std::vector<playlist::ListEntry>())) {
        list.AddItem({}, entry.fileName, entry.title, entry.timeText, entry.seconds);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = base::withoutByteOrderMark(std::string(data, data + size));
    for (const bool relative : {false, true}) {
        const playlist::ListManner manner{.comfort = {.savesRelativeNames = relative},
                                          .folder = "/l"};
        playlist::stdSS list;
        append(text, list, manner);
        playlist::stdSS again;
        append(playlist::xspfText(list, manner), again, manner);
        demandSameRows(list, again);
    }
    return 0;
}
