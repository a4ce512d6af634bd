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
#include <utility>

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

LastSession::LastSession(const Needs& needs)
    : p_(needs), soon_(needs.core.timers.makeTimer([this] { keepSoFar(); })) {
    soon_->setInterval(kSoonMs);
    p_.core.news.add(*this);
}

LastSession::~LastSession() {
    p_.core.news.remove(*this);
}

/// Not within the start of a track, which is not to wait for files.
void LastSession::keepSoon() {
    const base::Comfort& comfort = p_.core.state.comfort;
    if (comfort.resumesSession || comfort.remembersPicks) {
        soon_->setEnabled(true);
    }
}

void LastSession::keepSoFar() {
    soon_->setEnabled(false);
    const player::PlayerState& state = p_.core.state;
    if (!p_.lists.keeps()) {
        return;
    }
    if (state.comfort.resumesSession && notePlace()) {
        p_.stored.saveBehind("RSM");
    }
    if (state.comfort.remembersPicks && state.ShuffleOn) {
        writer_.write(p_.paths.of(host::DataItem::ShuffleOrder), p_.playback.advance.order.text());
    }
}

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
    soon_->setEnabled(false);
    writer_.wait();
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

bool LastSession::notePlace() {
    player::RowPlace place;
    try {
        place = p_.playback.rows.place().value_or(place);
    } catch (const base::RuntimeError&) { // NOLINT(bugprone-empty-catch): it has no place by now
    }
    const std::string text = std::to_string(place.row) + " " + std::to_string(place.seconds);
    return std::exchange(p_.core.state.ResumePlace, text) != text;
}

void LastSession::keepPlace() {
    if (notePlace()) {
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
