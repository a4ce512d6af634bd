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
using fuzz::demand;
using fuzz::demandSameRows;
using fuzz::IdlePump;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = base::withoutByteOrderMark(std::string(data, data + size));
    IdlePump pump;
    for (const bool relative : {false, true}) {
        const playlist::ListManner manner{.comfort = {.savesRelativeNames = relative},
                                          .folder = "/l"};
        playlist::stdSS list;
        demand(playlist::appendXspf(text, list, pump, manner) == playlist::ReadEnd::Complete);
        playlist::stdSS again;
        demand(playlist::appendXspf(playlist::xspfText(list, manner), again, pump, manner) ==
               playlist::ReadEnd::Complete);
        demandSameRows(list, again);
    }
    return 0;
}
