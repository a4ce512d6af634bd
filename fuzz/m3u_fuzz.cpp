// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for a playlist file: it is read, and what was read is written and read again.
// A list that was written by the player always comes back as it was.
#include "base/ComfortTable.h"
#include "base/RuntimeError.h"
#include "base/Unicode.h"
#include "ListDemands.h"
#include "playlist/M3uList.h"
#include "playlist/stdSS.h"

#include <cstdint>
#include <cstdlib>

using namespace tovik;
using fuzz::demand;
using fuzz::demandSameRows;
using fuzz::IdlePump;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = base::withoutByteOrderMark(std::string(data, data + size));
    IdlePump pump;
    const bool stop = false;
    playlist::stdSS list;
    try {
        demand(playlist::appendM3u(text, list, pump, stop) == playlist::ReadEnd::Complete);
    } catch (const base::RuntimeError& error) {
        demand(error.number() == 13 || error.number() == 6);
    }
    playlist::stdSS again;
    const std::string written = playlist::m3uText(list);
    demand(playlist::appendM3u(written, again, pump, stop) == playlist::ReadEnd::Complete);
    demandSameRows(list, again);

    // As lists of others, too.
    const playlist::ListManner manner{.comfort = base::ComfortChoices{.master = true}.record(),
                                      .folder = "/l"};
    playlist::stdSS foreign;
    demand(playlist::appendM3u(text, foreign, pump, stop, manner) == playlist::ReadEnd::Complete);
    playlist::stdSS own;
    demand(playlist::appendM3u(playlist::m3uText(foreign, manner), own, pump, stop, manner) ==
           playlist::ReadEnd::Complete);
    demandSameRows(foreign, own);
    return 0;
}
