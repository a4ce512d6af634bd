// SPDX-License-Identifier: GPL-3.0-or-later
// What the fuzz targets of playlist files share: a pump that never ends and the demand that two
// lists hold the same rows.
#pragma once

#include "host/MessagePump.h"
#include "playlist/stdSS.h"

#include <cstdlib>

namespace tovik::fuzz {

class IdlePump final : public host::MessagePump {
public:
    [[nodiscard]] bool Step() override { return true; }
};

inline void demand(bool holds) {
    if (!holds) {
        std::abort();
    }
}

inline void demandSameRows(const playlist::stdSS& one, const playlist::stdSS& other) {
    demand(one.ListCount() == other.ListCount());
    for (playlist::Row row = 1; row <= one.ListCount(); ++row) {
        demand(one.seconds(row) == other.seconds(row));
        for (const auto text : {playlist::RowText::FileName, playlist::RowText::Title,
                                playlist::RowText::TimeText, playlist::RowText::ItemData}) {
            demand(one.text(row, text) == other.text(row, text));
        }
    }
}

} // namespace tovik::fuzz
