// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for a PLS file: it is read, and what was read is written and read again. A list
// that was written by the player always comes back as it was, but for line breaks.
#include "base/Unicode.h"
#include "playlist/HtmlList.h"
#include "playlist/PlsList.h"
#include "playlist/stdSS.h"

#include <cstdint>
#include <cstdlib>

namespace {

using namespace tovik;

class IdlePump final : public host::MessagePump {
public:
    [[nodiscard]] bool Step() override { return true; }
};

void demand(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void demandSameRows(const playlist::stdSS& one, const playlist::stdSS& other) {
    demand(one.ListCount() == other.ListCount());
    for (playlist::Row row = 1; row <= one.ListCount(); ++row) {
        demand(one.seconds(row) == other.seconds(row));
        for (const auto text : {playlist::RowText::FileName, playlist::RowText::Title,
                                playlist::RowText::TimeText, playlist::RowText::ItemData}) {
            demand(one.text(row, text) == other.text(row, text));
        }
    }
}

} // namespace

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
    return 0;
}
