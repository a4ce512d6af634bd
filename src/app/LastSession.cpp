// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/LastSession.h"

#include "base/AtomicFile.h"
#include "base/RegularFile.h"
#include "config/WriteFailure.h"

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace tovik::app {

namespace {

constexpr std::int64_t kMostOrderBytes = 4 << 20;

/// "12 95": the row and the second.
player::RowPlace placeIn(std::string_view text) {
    player::RowPlace place;
    const char* const end = text.data() + text.size();
    const auto row = std::from_chars(text.data(), end, place.row);
    if (row.ec == std::errc() && row.ptr != end) {
        std::from_chars(row.ptr + 1, end, place.seconds);
    }
    return place;
}

} // namespace

void LastSession::restore() {
    player::PlayerState& state = p_.core.state;
    if (state.FirstRun) {
        return; // begins with a piece of its own
    }
    if (state.comfort.resumesSession) {
        p_.stored.read("RSM");
        const player::RowPlace place = placeIn(state.ResumePlace);
        if (place.row >= 1 && place.row <= p_.core.lists.stdSS.ListCount()) {
            p_.playback.rows.waitAt(place);
        }
    }
    if (state.comfort.remembersPicks) {
        std::string text;
        if (!base::readWholeFile(p_.paths.of(host::DataItem::ShuffleOrder), text,
                                 kMostOrderBytes)) {
            p_.playback.advance.order.restore(text);
        }
    }
}

void LastSession::keep() {
    const player::PlayerState& state = p_.core.state;
    if (!p_.lists.keeps()) {
        return;
    }
    if (state.comfort.resumesSession) {
        keepPlace();
    }
    if (state.comfort.remembersPicks) {
        keepOrder();
    }
}

void LastSession::keepPlace() {
    player::RowPlace place;
    try {
        place = p_.playback.rows.place().value_or(place);
    } catch (const base::RuntimeError&) { // NOLINT(bugprone-empty-catch): it has no place by now
    }
    const std::string text = std::to_string(place.row) + " " + std::to_string(place.seconds);
    if (p_.core.state.ResumePlace != text) {
        p_.core.state.ResumePlace = text;
        p_.stored.save("RSM");
    }
}

void LastSession::keepOrder() {
    const std::string file = p_.paths.of(host::DataItem::ShuffleOrder);
    if (!p_.core.state.ShuffleOn) {
        static_cast<void>(std::remove(file.c_str()));
    } else if (const auto failure =
                   base::replaceFile(file, p_.playback.advance.order.text(), base::Flush::Yes)) {
        config::raiseWriteFailure(failure, file);
    }
}

} // namespace tovik::app
