// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for a PLS file: it is read, and what was read is written and read again. A list
// that was written by the player always comes back as it was, but for line breaks.
#include "base/ComfortTable.h"
#include "base/Unicode.h"
#include "ListDemands.h"
#include "playlist/HtmlList.h"
#include "playlist/PlsList.h"
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
    playlist::stdSS list;
    demand(playlist::appendPls(text, list, pump) == playlist::ReadEnd::Complete);
    playlist::stdSS again;
    demand(playlist::appendPls(playlist::plsText(list), again, pump) ==
           playlist::ReadEnd::Complete);
    demandSameRows(list, again);
    demand(playlist::htmlText(list).ends_with("</html>\r\n"));

    // As lists of others, too.
    const playlist::ListManner manner{.comfort = base::ComfortChoices{.master = true}.record(),
                                      .folder = "/l"};
    playlist::stdSS foreign;
    demand(playlist::appendPls(text, foreign, pump, manner) == playlist::ReadEnd::Complete);
    playlist::stdSS own;
    demand(playlist::appendPls(playlist::plsText(foreign, manner), own, pump, manner) ==
           playlist::ReadEnd::Complete);
    demandSameRows(foreign, own);
    return 0;
}
